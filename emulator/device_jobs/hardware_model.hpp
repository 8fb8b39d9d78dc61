#pragma once

// The emulated RQ5 hardware: the main potentiostat "MAIN:1:POT", one QLC card (index 1) with
// the external potentiostats "QLC:1:EXT1:POT" and "QLC:1:EXT2:POT", and one MUX4 card (index
// 1) with four input channels. Control and information jobs read and change its state; the
// measurement executors take their cell models and output potentiostat from it.

#include "emulator/cell/cell_model.hpp"
#include "json_common/configuration/hardware_info.hpp"
#include "json_common/configuration/hardware_settings.hpp"
#include "json_common/job_parameters/control_parameters.hpp"
#include "json_common/job_parameters/job_results.hpp"
#include "json_common/logging/error_object.hpp"

#include <boost/json/object.hpp>

#include <array>
#include <chrono>
#include <expected>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmar::emulator {

class HardwareModel;
class ResourceStore;

/// One control, information or calibration kind on the emulated hardware: an entry of the
/// table in hardware_jobs.cpp, beside the kind's entry in the job catalogue (job_catalog.cpp),
/// which has already checked its keys and their ranges. Adding such a kind is one catalogue
/// entry and one entry here. Null members: nothing to check, kDefaultJobSeconds, no effect.
struct HardwareJob {
    /// Creation-time checks that need the hardware description: symbolic paths, ranges that
    /// depend on other keys, resources, date texts. Called with the model's lock held.
    ErrorObject (*validate)(const HardwareModel& model, const boost::json::object& parameters,
                            const ResourceStore& resources) = nullptr;
    /// Emulated seconds that the job takes.
    double (*duration)(const boost::json::object& parameters) = nullptr;
    /// Runs the job once its time has passed: the "result" object (empty for jobs without
    /// one) or the job's runtime error. Called with the model's lock held.
    std::expected<boost::json::object, ErrorObject> (*execute)(HardwareModel& model,
                                                               const boost::json::object& parameters,
                                                               ResourceStore& resources) = nullptr;
};

/// The entry of `type`, or null (measurement kinds, which executors run).
const HardwareJob* findHardwareJob(std::string_view type);

/// Job types that have an entry, for the consistency test of the two tables.
std::vector<std::string_view> hardwareJobTypes();

/// Any thread (one mutex); in the emulator only the I/O thread calls it.
class HardwareModel {
public:
    /// `cellSpec` (see parseCellSpec) is the cell behind every potentiostat; an invalid spec
    /// falls back to a 1 kOhm resistor.
    explicit HardwareModel(std::string serialNumber, std::string cellSpec = "resistor:R=1000");

    /// Creation-time checks that need the hardware description but not its state: a
    /// "potentiostat" key must name a potentiostat, then the kind's HardwareJob::validate:
    /// symbolic paths (PARAMETER_SYMBOLIC_PATH_INVALID), ranges depending on other keys
    /// (PARAMETER_VALUE_TOO_HIGH/_LOW), resources (ID_NOT_FOUND), calibration type
    /// (CALIBRATION_TYPE_UNKNOWN), date texts (PARAMETER_FORMAT_INVALID). The keys and their
    /// ranges have been checked by the catalogue.
    ErrorObject validate(std::string_view type, const boost::json::object& parameters,
                         const ResourceStore& resources) const;

    /// Emulated seconds that a control, information or calibration job takes.
    double duration(std::string_view type, const boost::json::object& parameters) const;

    /// Runs a control, information or calibration job once its time has passed: the "result"
    /// object (empty for jobs without one) or the job's runtime error, e.g. POT_STATUS_MISMATCH
    /// for "set_voltage_range" while the potentiostat is on.
    std::expected<boost::json::object, ErrorObject> execute(std::string_view type,
                                                            const boost::json::object& parameters,
                                                            ResourceStore& resources);

    HardwareInfo info() const;
    HardwareSettings settings() const;
    PotentiostatState potentiostatState(std::string_view potentiostat) const;
    bool isPotentiostat(std::string_view uri) const;
    /// The potentiostat on which measurements output: the first output potentiostat of the
    /// hardware settings ("MAIN:1:POT" when there is none).
    std::string outputPotentiostat() const;
    /// A fresh cell model (at rest) behind `potentiostat`.
    std::unique_ptr<CellModel> makeCell(std::string_view potentiostat) const;
    /// The emulated real-time clock.
    std::chrono::system_clock::time_point now() const;

    static constexpr std::string_view MAIN_POTENTIOSTAT = "MAIN:1:POT";
    /// The voltage ranges (V) by index, and the largest current (A).
    static constexpr std::array<double, 3> VOLTAGE_RANGES{2.5, 5.0, 10.0};
    static constexpr double MAX_CURRENT = 1.0;
    /// Emulated seconds of the jobs that take no time of their own.
    static constexpr double DEFAULT_JOB_SECONDS = 0.01;

private:
    friend struct HardwareJobs;

    const PathInfo* findPath(std::string_view urn) const;
    bool isAdc(std::string_view adc) const;
    double integrate(const PathInfo& path, double duration) const;
    static ErrorObject pathInvalid(std::string_view path, std::string_view key);
    /// The converter part of an ADC name: "MUX:1:MUX_U" for itself or for a path ending in it.
    static std::string_view converterOf(std::string_view adc);

    using PotentiostatMap = std::map<std::string, PotentiostatState, std::less<>>;

    mutable std::mutex mutex_;
    std::string cellSpec_;
    HardwareInfo info_;
    PotentiostatMap potentiostats_;
    std::map<std::string, std::vector<int>, std::less<>> adcGains_;
    /// Hardware properties by (uri, key); set_led_color and set_cable_options write here too.
    std::map<std::pair<std::string, std::string>, HardwarePropertyValue, std::less<>> properties_;
    HardwareSettings settings_;
    std::chrono::system_clock::duration clockOffset_{0};
    std::string mesh_ = R"({"mesh":[]})";
    std::map<std::string, boost::json::value, std::less<>> calibrationData_;
};

/// URL notation of a path URN: lower case, with "/" for ":" ("MAIN:1:POT:U~MUX:1:MUX_U"
/// becomes "main/1/pot/u~mux/1/mux_u").
std::string urlOfUrn(std::string_view urn);

/// Parses ISO 8601 date and time text "YYYY-MM-DDTHH:MM:SS[.fff][Z|+HH:MM|-HH:MM]" ("T" or
/// a space); nothing when malformed.
std::optional<std::chrono::system_clock::time_point> parseIsoDateTime(std::string_view text);

}  // namespace velmar::emulator
