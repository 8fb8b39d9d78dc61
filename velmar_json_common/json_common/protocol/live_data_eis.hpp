#pragma once

// Live data of impedance jobs. The header's element lists (impedances, paths, potentiostats,
// meta columns) are kept as the JSON arrays the device sent, one element per declared item.

#include "json_common/protocol/live_data_header.hpp"

#include <boost/json/array.hpp>

#include <cstdint>
#include <vector>

namespace velmar {

/// Rows of numbers, one list per declared element.
using NumberLists = std::vector<std::vector<double>>;

struct LiveDataHeaderEis : LiveDataHeader {
    static constexpr const char* MEASUREMENT_TYPE = "Electrochemical Impedance Spectroscopy";
    static constexpr const char* MEASUREMENT_TYPE_SHORT = "EIS";

    boost::json::array impedances;
    boost::json::array paths;
    boost::json::array async_paths;
    boost::json::array potentiostats;
    boost::json::array meta;
};

/// One frequency point: one number list per declared element of the header, in header order.
struct LiveDataRowEis {
    NumberLists impedances;
    NumberLists paths;
    /// One wave per sync path; empty for a row that refers to a wave sent earlier.
    NumberLists paths_waves;
    NumberLists async_paths;
    NumberLists potentiostats;
    NumberLists meta;
};

/// A preview fragment of the recorded waves: samples offset .. offset + length of each list.
struct LiveDataWavesEis {
    NumberLists paths_waves;
    std::uint64_t offset = 0;
    std::uint64_t full_wave_size = 0;
};

/// Reads the texts, the five element lists (each must be an array) and "columns" when present.
/// Throws std::invalid_argument "the AC data table does not match the declared ..." otherwise.
LiveDataHeaderEis tag_invoke(const boost::json::value_to_tag<LiveDataHeaderEis>&, const boost::json::value& jv);
/// Writes "measurement_type", "measurement_type_short", "dimensions", "units", then the lists.
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const LiveDataHeaderEis& header);

/// All six keys must be present arrays of number lists; otherwise std::invalid_argument
/// "the AC data table does not match the declared row layout: ...".
LiveDataRowEis tag_invoke(const boost::json::value_to_tag<LiveDataRowEis>&, const boost::json::value& jv);
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const LiveDataRowEis& row);

/// "paths_waves" must be a list of number lists; "offset" and "full_wave_size" are unsigned
/// integers and 0 when absent.
LiveDataWavesEis tag_invoke(const boost::json::value_to_tag<LiveDataWavesEis>&, const boost::json::value& jv);
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const LiveDataWavesEis& waves);

}  // namespace velmar
