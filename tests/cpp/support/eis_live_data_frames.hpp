#pragma once

// Impedance live-data events as the workstation sends them (the "event" objects), shared by
// the decoder and session tests: one impedance, two sync paths, no async path, one
// potentiostat, the five meta columns.

#include <string>
#include <string_view>

namespace velmar::testing {

inline constexpr std::string_view EIS_HEADER = R"({"measurement_type":"Electrochemical Impedance Spectroscopy",
 "measurement_type_short":"EIS",
 "impedances":[{"impedance_name":"","numerator":"MAIN:1:POT:U~MUX:1:MUX_U","denominator":"MAIN:1:POT:I~MUX:1:MUX_I",
   "dimensions":["|impedance|","phase"],"units":["\u2126","rad"]}],
 "paths":[{"name":"voltage","uri":"MAIN:1:POT:U~MUX:1:MUX_U","dimensions":["dc","gain"],"units":["V",""]},
          {"name":"current","uri":"MAIN:1:POT:I~MUX:1:MUX_I","dimensions":["dc","gain"],"units":["A",""]}],
 "async_paths":[],
 "potentiostats":[{"uri":"MAIN:1:POT","dimensions":["dc","shunt"],"units":["V","\u2126"]}],
 "meta":{"dimensions":["frequency","periods","time","wave_id","wave_size"],"units":["Hz","","s","",""]}})";

/// The event of the header, with `extra` members (e.g. R"("job_id":"j")") in front.
inline std::string eisHeaderEvent(std::string_view extra = {}) {
    return "{" + std::string(extra) + (extra.empty() ? "" : ",") + R"("type":"LIVE_DATA_HEADER_EIS","header":)" +
           std::string(EIS_HEADER) + "}";
}

/// A row that fits EIS_HEADER, with a wave of three samples per sync path.
inline constexpr std::string_view EIS_ROW_MEMBERS =
    R"("impedances":[[1000.5,-0.25]],"paths":[[0.5,1],[0.0005,10]],"paths_waves":[[1,2,3],[4,5,6]],)"
    R"("async_paths":[],"potentiostats":[[0.5,1000]],"meta":[[100,4,0.5,0,3]])";

inline std::string eisRowEvent(std::string_view members = EIS_ROW_MEMBERS, std::string_view extra = {}) {
    return "{" + std::string(extra) + (extra.empty() ? "" : ",") + R"("type":"LIVE_DATA_ROW_EIS",)" +
           std::string(members) + "}";
}

inline std::string eisWavesEvent(std::string_view members, std::string_view extra = {}) {
    return "{" + std::string(extra) + (extra.empty() ? "" : ",") + R"("type":"LIVE_DATA_WAVES",)" +
           std::string(members) + "}";
}

}  // namespace velmar::testing
