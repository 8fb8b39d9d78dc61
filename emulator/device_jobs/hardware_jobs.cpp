// The control, information and calibration kinds on the emulated hardware: one HardwareJob
// entry per kind (validate, duration, execute). Their keys and key ranges are checked before,
// by the job catalogue; numbers read here are finite and within those ranges.
#include "emulator/core/emulator_messages.hpp"
#include "emulator/core/id_source.hpp"
#include "emulator/core/resource_store.hpp"
#include "emulator/device_jobs/hardware_model.hpp"
#include "emulator/device_jobs/job_catalog.hpp"
#include "emulator/device_jobs/job_messages.hpp"
#include "json_common/base64.hpp"
#include "json_common/detail/described_json.hpp"
#include "json_common/job_parameters/calibration_parameters.hpp"

#include <boost/json.hpp>

#include <algorithm>
#include <cmath>
#include <exception>
#include <map>

namespace velmar::emulator {

namespace json = boost::json;
using Result = std::expected<json::object, ErrorObject>;

namespace {

constexpr double kCalibrationSeconds = 3.0;
constexpr double kRebootSeconds = 1.0;
/// Bounds of the tables that jobs fill with new keys.
constexpr std::size_t kMaxHardwareProperties = 1024;
constexpr std::size_t kMaxCalibrationEntries = 256;

/// OUT_OF_MEMORY unless `table` has room for `key` (an existing key is replaced in place).
template <class Map, class Key>
ErrorObject roomFor(const Map& table, const Key& key, std::size_t maximum, std::string_view what) {
    if (table.size() < maximum || table.contains(key)) return {};
    return ErrorObject(ErrorCodeEnum::OUT_OF_MEMORY, messages::TABLE_FULL, what, std::uint64_t{maximum});
}

std::string_view stringOf(const json::object& parameters, std::string_view key) {
    const auto* value = parameters.if_contains(key);
    return value != nullptr && value->is_string() ? std::string_view(value->get_string()) : std::string_view();
}

/// An integer key; its range has been checked by the catalogue, so the conversion is exact.
int intOf(const json::object& parameters, std::string_view key) {
    return static_cast<int>(std::lround(numberOf(parameters, key)));
}

std::vector<int> intsOf(const json::object& parameters, std::string_view key) {
    std::vector<int> out;
    if (const auto* array = parameters.contains(key) ? parameters.at(key).if_array() : nullptr) {
        for (const auto& element : *array) out.push_back(static_cast<int>(std::lround(element.to_number<double>())));
    }
    return out;
}

template <class Record>
std::expected<Record, ErrorObject> readRecord(const json::object& parameters) {
    try {
        return json::value_to<Record>(json::value(parameters));
    } catch (const std::exception& error) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID,
                                           "parameters", error.what()));
    }
}

double durationKey(const json::object& parameters) { return numberOf(parameters, "duration"); }
double calibrationSeconds(const json::object&) { return kCalibrationSeconds; }
double rebootSeconds(const json::object&) { return kRebootSeconds; }

std::string calibrationKey(const json::object& parameters) {
    return std::string(stringOf(parameters, "calibration_type")) + "|" +
           std::string(stringOf(parameters, "calibration_path"));
}

}  // namespace

/// The entries; a friend of HardwareModel, so that they work on its state directly (the
/// model's lock is held around every call).
struct HardwareJobs {
    using M = HardwareModel;
    using P = json::object;

    static ErrorObject validateSwitchOn(const M&, const P& p, const ResourceStore&) {
        const auto coupling = potentiostatCouplingFromName(stringOf(p, "coupling"));
        if (!coupling) {
            return ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID, "coupling",
                               "one of POTENTIOSTATIC, GALVANOSTATIC, FRA_PROBE");
        }
        const auto range = static_cast<std::size_t>(intOf(p, "voltage_range_index"));
        const double limit =
            *coupling == PotentiostatCoupling::GALVANOSTATIC ? M::MAX_CURRENT : M::VOLTAGE_RANGES.at(range);
        return checkRange("bias", numberOf(p, "bias"), -limit, limit);
    }

    static Result switchOn(M& m, const P& p, ResourceStore&, bool withResult) {
        auto& pot = m.potentiostats_.find(stringOf(p, "potentiostat"))->second;
        const auto coupling =
            potentiostatCouplingFromName(stringOf(p, "coupling")).value_or(PotentiostatCoupling::POTENTIOSTATIC);
        pot.switched_on = true;
        pot.coupling = coupling;
        pot.dc_value = numberOf(p, "bias");
        pot.voltage_range_index = intOf(p, "voltage_range_index");
        pot.compliance_range_index = intOf(p, "compliance_range_index");
        if (!withResult) return json::object{};
        // The response of the cell 0.1 s after the output was applied.
        auto cell = parseCellSpec(m.cellSpec_);
        SwitchOnInfo result{pot.dc_value, pot.dc_value, 0.0};
        if (cell) {
            if (coupling == PotentiostatCoupling::GALVANOSTATIC) {
                (void)(*cell)->stepGalvanostatic(0.0, pot.dc_value);
                result.voltage = (*cell)->stepGalvanostatic(0.1, pot.dc_value);
                result.current = pot.dc_value;
            } else {
                (void)(*cell)->stepPotentiostatic(0.0, pot.dc_value);
                result.current = (*cell)->stepPotentiostatic(0.1, pot.dc_value);
            }
        }
        return json::value_from(result).as_object();
    }

    static M::PotentiostatMap::iterator potentiostat(M& m, const P& p) {
        return m.potentiostats_.find(stringOf(p, "potentiostat"));
    }

    static ErrorObject validateAdc(const M& m, const P& p, const ResourceStore&) {
        const auto adc = stringOf(p, "adc");
        return m.isAdc(adc) ? ErrorObject{} : M::pathInvalid(adc, "adc");
    }

    static ErrorObject validateChannel(const M& m, const P& p, const ResourceStore&) {
        const auto channel = stringOf(p, "channel");
        return m.findPath(channel) != nullptr ? ErrorObject{} : M::pathInvalid(channel, "channel");
    }

    static ErrorObject validateDateTime(const M&, const P& p, const ResourceStore&) {
        const auto text = stringOf(p, "datetime");
        if (parseIsoDateTime(text)) return {};
        return ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, job_messages::DATETIME_INVALID, "datetime", text);
    }

    static ErrorObject validateUri(const M& m, const P& p, const ResourceStore&) {
        const auto uri = stringOf(p, "uri");
        const bool known = m.potentiostats_.contains(uri) || m.findPath(uri) != nullptr ||
                           std::ranges::any_of(m.info_.cards, [&](const CardInfo& card) { return card.symbol == uri; });
        return known ? ErrorObject{} : M::pathInvalid(uri, "uri");
    }

    static ErrorObject validateHardwareSettings(const M& m, const P& p, const ResourceStore&) {
        auto settings = readRecord<SetHardwareSettingsParameters>(p);
        if (!settings) return settings.error();
        for (const auto& channel : settings->channels) {
            if (m.findPath(channel.uri) == nullptr) return M::pathInvalid(channel.uri, "channels");
        }
        for (const auto& output : settings->output_potentiostats) {
            if (!m.potentiostats_.contains(output.uri)) return M::pathInvalid(output.uri, "output_potentiostats");
        }
        for (const auto& impedance : settings->impedance_configurations) {
            if (m.findPath(impedance.numerator) == nullptr)
                return M::pathInvalid(impedance.numerator, "impedance_configurations");
            if (m.findPath(impedance.denominator) == nullptr)
                return M::pathInvalid(impedance.denominator, "impedance_configurations");
        }
        return {};
    }

    static Result setHardwareSettings(M& m, const P& p, ResourceStore&) {
        auto wanted = readRecord<SetHardwareSettingsParameters>(p);
        if (!wanted) return std::unexpected(wanted.error());
        // Channels sampled by the simultaneous converters (MUX, MUX4) are synchronous; the
        // high-precision and acquisition channels can only be read one after another.
        HardwareSettings adopted;
        for (const auto& channel : wanted->channels) {
            const auto* path = m.findPath(channel.uri);
            (path != nullptr && path->sampling == "simultan" ? adopted.sync_channels : adopted.async_channels)
                .push_back(channel);
        }
        adopted.impedance_configurations = std::move(wanted->impedance_configurations);
        adopted.output_potentiostats = std::move(wanted->output_potentiostats);
        m.settings_ = std::move(adopted);
        return json::object{};
    }

    static ErrorObject validateFirmware(const M&, const P& p, const ResourceStore& resources) {
        auto found = resources.info(ResourceTypeEnum::FIRMWARE_UPDATE, stringOf(p, "resource_id"));
        return found ? ErrorObject{} : found.error();
    }

    static ErrorObject validateCalibrate(const M&, const P& p, const ResourceStore&) {
        const auto calibration = stringOf(p, "calibration_type");
        if (calibration == "dc") return {};
        return ErrorObject(ErrorCodeEnum::CALIBRATION_TYPE_UNKNOWN, job_messages::CALIBRATION_TYPE_UNKNOWN, calibration);
    }

    static Result setHardwareProperty(M& m, const P& p, ResourceStore&) {
        const auto& value = p.at("value");
        HardwarePropertyValue stored;
        if (value.is_bool()) {
            stored = value.get_bool();
        } else if (value.is_int64() && value.get_int64() >= INT32_MIN && value.get_int64() <= INT32_MAX) {
            stored = static_cast<std::int32_t>(value.get_int64());
        } else if (value.is_number()) {
            stored = value.to_number<double>();
        } else {
            stored = std::string(value.get_string());
        }
        std::pair key{std::string(stringOf(p, "uri")), std::string(stringOf(p, "key"))};
        if (auto error = roomFor(m.properties_, key, kMaxHardwareProperties, "hardware properties"))
            return std::unexpected(std::move(error));
        m.properties_[std::move(key)] = std::move(stored);
        return json::object{};
    }

    static Result getHardwareProperty(M& m, const P& p, ResourceStore&) {
        const auto found =
            m.properties_.find(std::pair{std::string(stringOf(p, "uri")), std::string(stringOf(p, "key"))});
        if (found == m.properties_.end()) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::ID_NOT_FOUND, job_messages::ID_NOT_FOUND,
                                               "hardware property", "key", stringOf(p, "key")));
        }
        return json::object{{"value", detail::memberToJson(found->second)}};
    }

    static const std::map<std::string_view, HardwareJob, std::less<>>& table() {
        using R = ResourceStore;
        // clang-format off
        static const std::map<std::string_view, HardwareJob, std::less<>> entries{
            {"switch_on", {&validateSwitchOn, nullptr,
                [](M& m, const P& p, R& r) { return switchOn(m, p, r, true); }}},
            {"switch_on_quick", {&validateSwitchOn, nullptr,
                [](M& m, const P& p, R& r) { return switchOn(m, p, r, false); }}},
            {"switch_off", {nullptr, nullptr, [](M& m, const P& p, R&) -> Result {
                potentiostat(m, p)->second.switched_on = false;
                return json::object{};
            }}},
            {"switch_all_off", {nullptr, nullptr, [](M& m, const P&, R&) -> Result {
                for (auto& [uri, pot] : m.potentiostats_) pot.switched_on = false;
                return json::object{};
            }}},
            {"reboot", {nullptr, &rebootSeconds, [](M& m, const P&, R&) -> Result {
                for (auto& [uri, pot] : m.potentiostats_) pot.switched_on = false;
                return json::object{};
            }}},
            {"set_bias", {nullptr, nullptr, [](M& m, const P& p, R&) -> Result {
                potentiostat(m, p)->second.dc_value = numberOf(p, "bias");
                return json::object{};
            }}},
            {"set_voltage_range", {nullptr, nullptr, [](M& m, const P& p, R&) -> Result {
                auto& pot = potentiostat(m, p)->second;
                if (pot.switched_on) {
                    return std::unexpected(ErrorObject(ErrorCodeEnum::POT_STATUS_MISMATCH,
                                                       job_messages::POT_MUST_BE_OFF, stringOf(p, "potentiostat")));
                }
                pot.voltage_range_index = intOf(p, "index");
                return json::object{};
            }}},
            {"set_active_current_ranges", {nullptr, nullptr, [](M& m, const P& p, R&) -> Result {
                potentiostat(m, p)->second.active_current_range_indexes = intsOf(p, "indexes");
                return json::object{};
            }}},
            {"set_cable_options", {nullptr, nullptr, [](M& m, const P& p, R&) -> Result {
                m.properties_[{std::string(stringOf(p, "potentiostat")), "additional_ce_capacitance"}] =
                    numberOf(p, "additional_ce_capacitance");
                return json::object{};
            }}},
            {"set_active_gains", {&validateAdc, nullptr, [](M& m, const P& p, R&) -> Result {
                m.adcGains_[std::string(M::converterOf(stringOf(p, "adc")))] = intsOf(p, "indexes");
                return json::object{};
            }}},
            {"get_adc_state", {&validateAdc, nullptr, [](M& m, const P& p, R&) -> Result {
                const auto found = m.adcGains_.find(M::converterOf(stringOf(p, "adc")));
                return json::value_from(
                           AdcStateInfo{found != m.adcGains_.end() ? found->second : std::vector<int>{}})
                    .as_object();
            }}},
            {"get_potentiostat_state", {nullptr, nullptr, [](M& m, const P& p, R&) -> Result {
                return json::value_from(potentiostat(m, p)->second).as_object();
            }}},
            {"get_hardware_info", {nullptr, nullptr, [](M& m, const P&, R&) -> Result {
                return json::value_from(m.info_).as_object();
            }}},
            {"get_hardware_settings", {nullptr, nullptr, [](M& m, const P&, R&) -> Result {
                return json::value_from(m.settings_).as_object();
            }}},
            {"set_hardware_settings", {&validateHardwareSettings, nullptr, &setHardwareSettings}},
            {"get_hardware_property", {&validateUri, nullptr, &getHardwareProperty}},
            {"set_hardware_property", {&validateUri, nullptr, &setHardwareProperty}},
            {"set_date_time", {&validateDateTime, nullptr, [](M& m, const P& p, R&) -> Result {
                m.clockOffset_ = *parseIsoDateTime(stringOf(p, "datetime")) - std::chrono::system_clock::now();
                return json::object{};
            }}},
            {"get_date_time", {nullptr, nullptr, [](M& m, const P&, R&) -> Result {
                return json::object{{"datetime", isoUtc(std::chrono::system_clock::now() + m.clockOffset_)}};
            }}},
            {"initialize_rtc", {nullptr, nullptr, [](M& m, const P&, R&) -> Result {
                m.clockOffset_ = std::chrono::system_clock::duration{0};
                return json::object{};
            }}},
            {"measure_integral", {&validateChannel, &durationKey, [](M& m, const P& p, R&) -> Result {
                const auto* path = m.findPath(stringOf(p, "channel"));
                return json::object{{"value", path != nullptr ? m.integrate(*path, numberOf(p, "duration")) : 0.0}};
            }}},
            {"set_led_color", {nullptr, nullptr, [](M& m, const P& p, R&) -> Result {
                m.properties_[{"MAIN:1", "led_color"}] = std::to_string(intOf(p, "red")) + "," +
                                                         std::to_string(intOf(p, "green")) + "," +
                                                         std::to_string(intOf(p, "blue"));
                return json::object{};
            }}},
            {"set_firmware_update", {&validateFirmware, nullptr, [](M&, const P& p, R& resources) -> Result {
                // The image may have been deleted while the job waited.
                auto found = resources.info(ResourceTypeEnum::FIRMWARE_UPDATE, stringOf(p, "resource_id"));
                if (!found) return std::unexpected(found.error());
                return json::object{};
            }}},
            {"beep", {nullptr, &durationKey, nullptr}},
            {"sleep", {nullptr, &durationKey, nullptr}},
            {"reenumerate_hardware", {nullptr, nullptr, nullptr}},
            {"calibrate", {&validateCalibrate, &calibrationSeconds, nullptr}},
            {"\xF0\x9F\x9B\xA0\xEF\xB8\x8F/get_filter_usage_matrix", {nullptr, nullptr, [](M&, const P&, R&) -> Result {
                return json::object{{"matrix", json::array{json::array{0, 0, 0, 3}, json::array{1, 2, 1, 7}}}};
            }}},
            {"\xF0\x9F\x9B\xA0\xEF\xB8\x8F/get_mesh_json_file", {nullptr, nullptr, [](M& m, const P&, R&) -> Result {
                return json::object{
                    {"file", json::object{{"name", "mesh.json"}, {"content", encodeBase64(m.mesh_)}}}};
            }}},
            {"\xF0\x9F\x9B\xA0\xEF\xB8\x8F/set_mesh_json_file", {nullptr, nullptr, [](M& m, const P& p, R&) -> Result {
                auto decoded = decodeBase64(stringOf(p, "content"));
                if (!decoded) {
                    return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID,
                                                       messages::PARAMETER_FORMAT_INVALID, "content",
                                                       "standard Base64"));
                }
                m.mesh_ = std::move(*decoded);
                return json::object{};
            }}},
            {"\xF0\x9F\x9B\xA0\xEF\xB8\x8F/set_calibration_data", {nullptr, &calibrationSeconds,
                [](M& m, const P& p, R&) -> Result {
                    const auto* data = p.if_contains("data");
                    auto key = calibrationKey(p);
                    if (auto error = roomFor(m.calibrationData_, key, kMaxCalibrationEntries, "calibration data"))
                        return std::unexpected(std::move(error));
                    m.calibrationData_[std::move(key)] = data != nullptr ? *data : json::value();
                    return json::object{};
                }}},
            {"\xF0\x9F\x9B\xA0\xEF\xB8\x8F/get_calibration_data", {nullptr, nullptr, [](M& m, const P& p, R&) -> Result {
                const auto found = m.calibrationData_.find(calibrationKey(p));
                return json::object{{"data", found != m.calibrationData_.end()
                                                 ? found->second
                                                 : json::value{{"type", "FLOAT"}, {"value", 1.0}}}};
            }}},
        };
        // clang-format on
        return entries;
    }
};

const HardwareJob* findHardwareJob(std::string_view type) {
    const auto& table = HardwareJobs::table();
    const auto found = table.find(type);
    return found == table.end() ? nullptr : &found->second;
}

std::vector<std::string_view> hardwareJobTypes() {
    std::vector<std::string_view> out;
    for (const auto& [type, job] : HardwareJobs::table()) out.push_back(type);
    return out;
}

}  // namespace velmar::emulator
