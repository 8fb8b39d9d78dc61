#include "emulator/device_jobs/hardware_model.hpp"

#include "emulator/core/emulator_messages.hpp"
#include "emulator/core/id_source.hpp"
#include "emulator/core/resource_store.hpp"
#include "emulator/device_jobs/job_catalog.hpp"
#include "emulator/device_jobs/job_messages.hpp"
#include "json_common/base64.hpp"
#include "json_common/detail/described_json.hpp"
#include "json_common/job_parameters/calibration_parameters.hpp"

#include <boost/json.hpp>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <exception>

namespace velmar::emulator {

namespace json = boost::json;
using Result = std::expected<json::object, ErrorObject>;

namespace {

constexpr std::array<std::string_view, 3> kPotentiostats{"MAIN:1:POT", "QLC:1:EXT1:POT", "QLC:1:EXT2:POT"};
constexpr std::array<double, 3> kVoltageRanges{2.5, 5.0, 10.0};
constexpr std::array<double, 2> kComplianceRanges{10.0, 20.0};
constexpr int kCurrentRanges = 9;  // 1 A down to 10 nA, a decade each
constexpr int kGains = 4;          // 1, 10, 100, 1000
constexpr double kMaxCurrent = 1.0;

/// Emulated seconds of the jobs that take no time of their own.
constexpr double kControlJobSeconds = 0.01;
constexpr double kCalibrationSeconds = 3.0;
constexpr double kRebootSeconds = 1.0;

PathInfo makePath(std::string urn, std::string sampling, std::string source, double relevance) {
    PathInfo path;
    path.url = urlOfUrn(urn);
    path.urn = std::move(urn);
    path.sampling = std::move(sampling);
    path.source = std::move(source);
    path.relevance = relevance;
    for (int i = 0; i < kGains; ++i) path.gain_ranges.push_back(GainRange{i, std::pow(10.0, i), true});
    for (int i = 0; i < 3; ++i) path.filter_ranges.push_back(FilterRange{i, 1000.0 * std::pow(100.0, i)});
    path.bandwidth_ranges = {BandwidthRange{0}, BandwidthRange{1}};
    return path;
}

PotentiostatInfo makePotentiostatInfo(std::string_view identifier, std::string serial) {
    PotentiostatInfo pot;
    pot.identifier = identifier;
    pot.serialnumber = std::move(serial);
    pot.has_calibration_data = true;
    pot.software = "3.1.0";
    pot.dac_resolution = 20;
    for (int i = 0; i < kCurrentRanges; ++i) {
        const double maximum = kMaxCurrent * std::pow(10.0, -i);
        pot.current_ranges.push_back(CurrentRange{i, maximum, 1.0 / maximum});
    }
    for (int i = 0; i < static_cast<int>(kVoltageRanges.size()); ++i)
        pot.voltage_ranges.push_back(VoltageRange{i, kVoltageRanges[i]});
    for (int i = 0; i < static_cast<int>(kComplianceRanges.size()); ++i) {
        pot.compliance_ranges.push_back(ComplianceRange{i, kComplianceRanges[i]});
    }
    pot.bandwidth_ranges = {BandwidthRange{0}, BandwidthRange{1}, BandwidthRange{2}};
    return pot;
}

PotentiostatState initialState() {
    PotentiostatState state;
    state.current_range_index = 2;
    state.current_range_integration_time = 0.001;
    state.current_range_relaxation_time = 0.0005;
    for (int i = 0; i < kCurrentRanges; ++i) state.active_current_range_indexes.push_back(i);
    state.active_bandwidth_indexes = {0, 1, 2};
    return state;
}

ErrorObject pathInvalid(std::string_view path, std::string_view key) {
    return ErrorObject(ErrorCodeEnum::PARAMETER_SYMBOLIC_PATH_INVALID, job_messages::PATH_INVALID, path, key);
}

std::string_view stringOf(const json::object& parameters, std::string_view key) {
    const auto* value = parameters.if_contains(key);
    return value != nullptr && value->is_string() ? std::string_view(value->get_string())
                                                  : std::string_view();
}

int intOf(const json::object& parameters, std::string_view key) {
    return static_cast<int>(std::lround(numberOf(parameters, key)));
}

std::vector<int> intsOf(const json::object& parameters, std::string_view key) {
    std::vector<int> out;
    if (const auto* array = parameters.contains(key) ? parameters.at(key).if_array() : nullptr) {
        for (const auto& element : *array)
            out.push_back(static_cast<int>(std::lround(element.to_number<double>())));
    }
    return out;
}

/// The converter part of an ADC name: "MUX:1:MUX_U" for itself or for a path ending in it.
std::string_view converterOf(std::string_view adc) {
    const auto tilde = adc.find('~');
    return tilde == std::string_view::npos ? adc : adc.substr(tilde + 1);
}

template <class Record>
std::expected<Record, ErrorObject> readRecord(const json::object& parameters) {
    try {
        return json::value_to<Record>(json::value(parameters));
    } catch (const std::exception& error) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID,
                                           messages::PARAMETER_FORMAT_INVALID, "parameters", error.what()));
    }
}

bool digits(std::string_view text, std::size_t at, std::size_t count, int& out) {
    if (at + count > text.size()) return false;
    const auto* first = text.data() + at;
    const auto [end, ec] = std::from_chars(first, first + count, out);
    return ec == std::errc() && end == first + count;
}

}  // namespace

std::string urlOfUrn(std::string_view urn) {
    std::string url(urn);
    for (auto& c : url) c = c == ':' ? '/' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return url;
}

std::optional<std::chrono::system_clock::time_point> parseIsoDateTime(std::string_view text) {
    using namespace std::chrono;
    int y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0;
    if (text.size() < 19 || text[4] != '-' || text[7] != '-' || (text[10] != 'T' && text[10] != ' ') ||
        text[13] != ':' || text[16] != ':') {
        return std::nullopt;
    }
    if (!digits(text, 0, 4, y) || !digits(text, 5, 2, mo) || !digits(text, 8, 2, d) ||
        !digits(text, 11, 2, h) || !digits(text, 14, 2, mi) || !digits(text, 17, 2, s)) {
        return std::nullopt;
    }
    const year_month_day date{year{y}, month{static_cast<unsigned>(mo)}, day{static_cast<unsigned>(d)}};
    if (!date.ok() || h > 23 || mi > 59 || s > 60) return std::nullopt;
    std::size_t at = 19;
    nanoseconds fraction{0};
    if (at < text.size() && text[at] == '.') {
        ++at;
        long long scale = 100'000'000;
        const std::size_t begin = at;
        while (at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])) != 0) {
            fraction += nanoseconds((text[at] - '0') * scale);
            scale /= 10;
            ++at;
        }
        if (at == begin) return std::nullopt;
    }
    minutes offset{0};
    if (at < text.size()) {
        if (text[at] == 'Z' && at + 1 == text.size()) {
            ++at;
        } else if ((text[at] == '+' || text[at] == '-') && at + 6 == text.size() && text[at + 3] == ':') {
            int oh = 0, om = 0;
            if (!digits(text, at + 1, 2, oh) || !digits(text, at + 4, 2, om) || oh > 23 || om > 59)
                return std::nullopt;
            offset = minutes(oh * 60 + om) * (text[at] == '-' ? -1 : 1);
            at += 6;
        } else {
            return std::nullopt;
        }
    }
    const auto local = sys_days(date) + hours(h) + minutes(mi) + seconds(s) + fraction - offset;
    return time_point_cast<system_clock::duration>(local);
}

HardwareModel::HardwareModel(std::string serialNumber, std::string cellSpec)
    : cellSpec_(std::move(cellSpec)) {
    if (!parseCellSpec(cellSpec_)) cellSpec_ = "resistor:R=1000";
    info_.workstation = "RQ5 " + serialNumber;
    info_.software = "26.40.0";
    int serial = 100001;
    for (const auto pot : kPotentiostats) {
        info_.potentiostats.push_back(makePotentiostatInfo(pot, std::to_string(serial++)));
        info_.paths.push_back(makePath(std::string(pot) + ":U~MUX:1:MUX_U", "simultan", "voltage", 1.0));
        info_.paths.push_back(makePath(std::string(pot) + ":I~MUX:1:MUX_I", "simultan", "shunt", 1.0));
        potentiostats_[std::string(pot)] = initialState();
    }
    for (int ch = 1; ch <= 4; ++ch) {
        const auto adc = "MUX4:1:ADC" + std::to_string(ch);
        info_.paths.push_back(
            makePath("MUX4:1:CH" + std::to_string(ch) + "~" + adc, "simultan", "input", 0.8));
        adcGains_[adc] = {0, 1, 2, 3};
    }
    info_.paths.push_back(makePath("MAIN:1:POT:U~HP:1:ADC_U", "high_precision", "voltage", 0.5));
    info_.paths.push_back(makePath("MAIN:1:POT:I~HP:1:ADC_I", "high_precision", "shunt", 0.5));
    info_.paths.push_back(makePath("MAIN:1:AUX1~ACQ:1:ADC1", "acq", "input", 0.3));
    info_.paths.push_back(makePath("MAIN:1:AUX2~ACQ:1:ADC2", "acq", "input", 0.3));
    for (const auto* adc :
         {"MUX:1:MUX_U", "MUX:1:MUX_I", "HP:1:ADC_U", "HP:1:ADC_I", "ACQ:1:ADC1", "ACQ:1:ADC2"}) {
        adcGains_[adc] = {0, 1, 2, 3};
    }
    info_.cards.push_back(CardInfo{"MAIN", "MAIN:1", serialNumber, "26.40.0", "C"});
    info_.cards.push_back(CardInfo{"QLC", "QLC:1", "QLC-200101", "1.4.2", "B"});
    info_.cards.push_back(CardInfo{"MUX4", "MUX4:1", "MUX4-300101", "1.1.0", "A"});

    properties_[{"MAIN:1:POT", "temperature"}] = 31.5;
    properties_[{"MAIN:1:POT", "fan_speed"}] = std::int32_t{1200};
    properties_[{"MAIN:1:POT", "label"}] = std::string("main");
    properties_[{"MAIN:1:POT", "led_enabled"}] = true;
    properties_[{"QLC:1", "temperature"}] = 29.0;
    properties_[{"MUX4:1", "channel_count"}] = std::int32_t{4};
    properties_[{"MAIN:1", "led_color"}] = std::string("0,0,255");

    // The default sampling configuration: the main potentiostat's voltage and current, their
    // impedance, output on the main potentiostat.
    settings_.sync_channels = {Channel{"MAIN:1:POT:U~MUX:1:MUX_U", "voltage", "V", {}},
                               Channel{"MAIN:1:POT:I~MUX:1:MUX_I", "current", "A", {}}};
    settings_.impedance_configurations = {
        ImpedanceConfiguration{"MAIN:1:POT:U~MUX:1:MUX_U", "MAIN:1:POT:I~MUX:1:MUX_I", ""}};
    settings_.output_potentiostats = {PotentiostatConfiguration{"MAIN:1:POT", {}, {}}};
}

const PathInfo* HardwareModel::findPath(std::string_view urn) const {
    for (const auto& path : info_.paths) {
        if (path.urn == urn) return &path;
    }
    return nullptr;
}

bool HardwareModel::isAdc(std::string_view adc) const {
    return adcGains_.find(converterOf(adc)) != adcGains_.end();
}

bool HardwareModel::isPotentiostat(std::string_view uri) const {
    std::lock_guard lock(mutex_);
    return potentiostats_.find(uri) != potentiostats_.end();
}

HardwareInfo HardwareModel::info() const {
    std::lock_guard lock(mutex_);
    return info_;
}

HardwareSettings HardwareModel::settings() const {
    std::lock_guard lock(mutex_);
    return settings_;
}

PotentiostatState HardwareModel::potentiostatState(std::string_view potentiostat) const {
    std::lock_guard lock(mutex_);
    const auto found = potentiostats_.find(potentiostat);
    return found != potentiostats_.end() ? found->second : PotentiostatState{};
}

std::string HardwareModel::outputPotentiostat() const {
    std::lock_guard lock(mutex_);
    return settings_.output_potentiostats.empty() ? std::string(MAIN_POTENTIOSTAT)
                                                  : settings_.output_potentiostats.front().uri;
}

std::unique_ptr<CellModel> HardwareModel::makeCell(std::string_view) const {
    std::lock_guard lock(mutex_);
    auto cell = parseCellSpec(cellSpec_);
    return cell ? std::move(*cell) : std::move(*parseCellSpec("resistor:R=1000"));
}

std::chrono::system_clock::time_point HardwareModel::now() const {
    std::lock_guard lock(mutex_);
    return std::chrono::system_clock::now() + clockOffset_;
}

ErrorObject HardwareModel::validateHardwareSettings(const json::object& parameters) const {
    auto settings = readRecord<SetHardwareSettingsParameters>(parameters);
    if (!settings) return settings.error();
    for (const auto& channel : settings->channels) {
        if (findPath(channel.uri) == nullptr) return pathInvalid(channel.uri, "channels");
    }
    for (const auto& output : settings->output_potentiostats) {
        if (potentiostats_.find(output.uri) == potentiostats_.end())
            return pathInvalid(output.uri, "output_potentiostats");
    }
    for (const auto& impedance : settings->impedance_configurations) {
        if (findPath(impedance.numerator) == nullptr)
            return pathInvalid(impedance.numerator, "impedance_configurations");
        if (findPath(impedance.denominator) == nullptr)
            return pathInvalid(impedance.denominator, "impedance_configurations");
    }
    return {};
}

ErrorObject HardwareModel::validate(std::string_view type, const json::object& parameters,
                                    const ResourceStore& resources) const {
    std::lock_guard lock(mutex_);
    const auto potentiostat = stringOf(parameters, "potentiostat");
    const bool hasPotentiostatKey = parameters.contains("potentiostat");
    if (hasPotentiostatKey && potentiostats_.find(potentiostat) == potentiostats_.end()) {
        return pathInvalid(potentiostat, "potentiostat");
    }
    if (type == "switch_on" || type == "switch_on_quick") {
        const auto coupling = potentiostatCouplingFromName(stringOf(parameters, "coupling"));
        if (!coupling) {
            return ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID,
                               "coupling", "one of POTENTIOSTATIC, GALVANOSTATIC, FRA_PROBE");
        }
        const int range = intOf(parameters, "voltage_range_index");
        if (auto e =
                checkRange("voltage_range_index", range, 0, static_cast<double>(kVoltageRanges.size() - 1)))
            return e;
        if (auto e = checkRange("compliance_range_index", intOf(parameters, "compliance_range_index"), 0,
                                static_cast<double>(kComplianceRanges.size() - 1))) {
            return e;
        }
        const double limit = *coupling == PotentiostatCoupling::GALVANOSTATIC
                                 ? kMaxCurrent
                                 : kVoltageRanges[static_cast<std::size_t>(range)];
        return checkRange("bias", numberOf(parameters, "bias"), -limit, limit);
    }
    if (type == "set_bias")
        return checkRange("bias", numberOf(parameters, "bias"), -kVoltageRanges.back(),
                          kVoltageRanges.back());
    if (type == "set_voltage_range") {
        return checkRange("index", intOf(parameters, "index"), 0,
                          static_cast<double>(kVoltageRanges.size() - 1));
    }
    if (type == "set_active_current_ranges") {
        for (const int index : intsOf(parameters, "indexes")) {
            if (auto e = checkRange("indexes", index, 0, kCurrentRanges - 1)) return e;
        }
        return {};
    }
    if (type == "set_cable_options")
        return checkRange("additional_ce_capacitance", numberOf(parameters, "additional_ce_capacitance"), 0.0,
                          1e-6);
    if (type == "set_active_gains" || type == "get_adc_state") {
        const auto adc = stringOf(parameters, "adc");
        if (!isAdc(adc)) return pathInvalid(adc, "adc");
        for (const int index : intsOf(parameters, "indexes")) {
            if (auto e = checkRange("indexes", index, 0, kGains - 1)) return e;
        }
        return {};
    }
    if (type == "set_led_color") {
        for (const auto* key : {"red", "green", "blue"}) {
            if (auto e = checkRange(key, intOf(parameters, key), 0, 255)) return e;
        }
        return {};
    }
    if (type == "beep") {
        if (auto e = checkRange("frequency", numberOf(parameters, "frequency"), 20.0, 20000.0)) return e;
        return checkRange("duration", numberOf(parameters, "duration"), 0.0, 10.0);
    }
    if (type == "sleep") return checkRange("duration", numberOf(parameters, "duration"), 0.0, 86400.0);
    if (type == "measure_integral") {
        const auto channel = stringOf(parameters, "channel");
        if (findPath(channel) == nullptr) return pathInvalid(channel, "channel");
        return checkRange("duration", numberOf(parameters, "duration"), 0.001, 3600.0);
    }
    if (type == "set_date_time") {
        const auto text = stringOf(parameters, "datetime");
        if (!parseIsoDateTime(text)) {
            return ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, job_messages::DATETIME_INVALID,
                               "datetime", text);
        }
        return {};
    }
    if (type == "get_hardware_property" || type == "set_hardware_property") {
        const auto uri = stringOf(parameters, "uri");
        const bool known =
            potentiostats_.contains(uri) || findPath(uri) != nullptr ||
            std::ranges::any_of(info_.cards, [&](const CardInfo& card) { return card.symbol == uri; });
        return known ? ErrorObject{} : pathInvalid(uri, "uri");
    }
    if (type == "set_hardware_settings") return validateHardwareSettings(parameters);
    if (type == "set_firmware_update") {
        if (auto found =
                resources.info(ResourceTypeEnum::FIRMWARE_UPDATE, stringOf(parameters, "resource_id"));
            !found) {
            return found.error();
        }
        return {};
    }
    if (type == "calibrate") {
        const auto calibration = stringOf(parameters, "calibration_type");
        if (calibration != "dc") {
            return ErrorObject(ErrorCodeEnum::CALIBRATION_TYPE_UNKNOWN,
                               job_messages::CALIBRATION_TYPE_UNKNOWN, calibration);
        }
        return {};
    }
    return {};
}

double HardwareModel::duration(std::string_view type, const json::object& parameters) const {
    if (type == "sleep" || type == "beep" || type == "measure_integral")
        return numberOf(parameters, "duration");
    if (type == "calibrate" || type.ends_with("/set_calibration_data")) return kCalibrationSeconds;
    if (type == "reboot") return kRebootSeconds;
    return kControlJobSeconds;
}

// Integrates what the path measures over `duration` seconds with the present output held:
// a current path gives the charge (A s), a voltage path volt-seconds; inputs of add-on cards
// see nothing. Trapezoidal over 200 steps of the cell model.
double HardwareModel::integrate(const PathInfo& path, double duration) const {
    if (path.source == "input" || duration <= 0.0) return 0.0;
    const auto potentiostat = path.urn.substr(0, path.urn.find(":POT") + 4);
    const auto found = potentiostats_.find(potentiostat);
    if (found == potentiostats_.end()) return 0.0;
    const auto& state = found->second;
    auto cell = parseCellSpec(cellSpec_);
    if (!cell) return 0.0;
    auto& model = **cell;
    const bool current = path.source == "shunt";
    const bool galvanostatic = state.coupling == PotentiostatCoupling::GALVANOSTATIC;
    constexpr int steps = 200;
    const double dt = duration / steps;
    double sum = 0.0, previous = 0.0;
    for (int i = 0; i <= steps; ++i) {
        const double t = dt * i;
        double value = 0.0;
        if (!state.switched_on) {
            value = current ? 0.0 : model.openCircuitPotential();
        } else if (galvanostatic) {
            const double potential = model.stepGalvanostatic(t, state.dc_value);
            value = current ? state.dc_value : potential;
        } else {
            const double measured = model.stepPotentiostatic(t, state.dc_value);
            value = current ? measured : state.dc_value;
        }
        if (i > 0) sum += 0.5 * (previous + value) * dt;
        previous = value;
    }
    return sum;
}

Result HardwareModel::execute(std::string_view type, const json::object& parameters,
                              ResourceStore& resources) {
    (void)resources;
    std::lock_guard lock(mutex_);
    const auto potentiostatName = stringOf(parameters, "potentiostat");
    const auto potentiostat = potentiostats_.find(potentiostatName);

    if (type == "switch_on" || type == "switch_on_quick") {
        auto& pot = potentiostat->second;
        const auto coupling = potentiostatCouplingFromName(stringOf(parameters, "coupling"))
                                  .value_or(PotentiostatCoupling::POTENTIOSTATIC);
        pot.switched_on = true;
        pot.coupling = coupling;
        pot.dc_value = numberOf(parameters, "bias");
        pot.voltage_range_index = intOf(parameters, "voltage_range_index");
        pot.compliance_range_index = intOf(parameters, "compliance_range_index");
        if (type == "switch_on_quick") return json::object{};
        // The response of the cell 0.1 s after the output was applied.
        auto cell = parseCellSpec(cellSpec_);
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
    if (type == "switch_off") {
        potentiostat->second.switched_on = false;
        return json::object{};
    }
    if (type == "switch_all_off" || type == "reboot") {
        for (auto& [uri, pot] : potentiostats_) pot.switched_on = false;
        return json::object{};
    }
    if (type == "set_bias") {
        potentiostat->second.dc_value = numberOf(parameters, "bias");
        return json::object{};
    }
    if (type == "set_voltage_range") {
        if (potentiostat->second.switched_on) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::POT_STATUS_MISMATCH,
                                               job_messages::POT_MUST_BE_OFF, potentiostatName));
        }
        potentiostat->second.voltage_range_index = intOf(parameters, "index");
        return json::object{};
    }
    if (type == "set_active_current_ranges") {
        potentiostat->second.active_current_range_indexes = intsOf(parameters, "indexes");
        return json::object{};
    }
    if (type == "set_cable_options") {
        properties_[{std::string(potentiostatName), "additional_ce_capacitance"}] =
            numberOf(parameters, "additional_ce_capacitance");
        return json::object{};
    }
    if (type == "set_active_gains") {
        adcGains_[std::string(converterOf(stringOf(parameters, "adc")))] = intsOf(parameters, "indexes");
        return json::object{};
    }
    if (type == "get_adc_state") {
        const auto found = adcGains_.find(converterOf(stringOf(parameters, "adc")));
        return json::value_from(AdcStateInfo{found != adcGains_.end() ? found->second : std::vector<int>{}})
            .as_object();
    }
    if (type == "get_potentiostat_state") return json::value_from(potentiostat->second).as_object();
    if (type == "get_hardware_info") return json::value_from(info_).as_object();
    if (type == "get_hardware_settings") return json::value_from(settings_).as_object();
    if (type == "set_hardware_settings") {
        auto wanted = readRecord<SetHardwareSettingsParameters>(parameters);
        if (!wanted) return std::unexpected(wanted.error());
        // Channels sampled by the simultaneous converters (MUX, MUX4) are synchronous; the
        // high-precision and acquisition channels can only be read one after another.
        HardwareSettings adopted;
        for (const auto& channel : wanted->channels) {
            const auto* path = findPath(channel.uri);
            (path != nullptr && path->sampling == "simultan" ? adopted.sync_channels : adopted.async_channels)
                .push_back(channel);
        }
        adopted.impedance_configurations = std::move(wanted->impedance_configurations);
        adopted.output_potentiostats = std::move(wanted->output_potentiostats);
        settings_ = std::move(adopted);
        return json::object{};
    }
    if (type == "get_hardware_property") {
        const auto found = properties_.find(
            std::pair{std::string(stringOf(parameters, "uri")), std::string(stringOf(parameters, "key"))});
        if (found == properties_.end()) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::ID_NOT_FOUND, job_messages::ID_NOT_FOUND,
                                               "hardware property", "key", stringOf(parameters, "key")));
        }
        return json::object{{"value", detail::memberToJson(found->second)}};
    }
    if (type == "set_hardware_property") {
        const auto& value = parameters.at("value");
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
        properties_[{std::string(stringOf(parameters, "uri")), std::string(stringOf(parameters, "key"))}] =
            std::move(stored);
        return json::object{};
    }
    if (type == "set_date_time") {
        clockOffset_ = *parseIsoDateTime(stringOf(parameters, "datetime")) - std::chrono::system_clock::now();
        return json::object{};
    }
    if (type == "get_date_time")
        return json::object{{"datetime", isoUtc(std::chrono::system_clock::now() + clockOffset_)}};
    if (type == "initialize_rtc") {
        clockOffset_ = std::chrono::system_clock::duration{0};
        return json::object{};
    }
    if (type == "measure_integral") {
        const auto* path = findPath(stringOf(parameters, "channel"));
        return json::object{
            {"value", path != nullptr ? integrate(*path, numberOf(parameters, "duration")) : 0.0}};
    }
    if (type == "set_led_color") {
        properties_[{"MAIN:1", "led_color"}] = std::to_string(intOf(parameters, "red")) + "," +
                                               std::to_string(intOf(parameters, "green")) + "," +
                                               std::to_string(intOf(parameters, "blue"));
        return json::object{};
    }
    if (type == "set_firmware_update") {
        // The image may have been deleted while the job waited.
        if (auto found = resources.info(ResourceTypeEnum::FIRMWARE_UPDATE, stringOf(parameters, "resource_id")); !found) {
            return std::unexpected(found.error());
        }
        return json::object{};
    }
    if (type.ends_with("/get_filter_usage_matrix")) {
        return json::object{{"matrix", json::array{json::array{0, 0, 0, 3}, json::array{1, 2, 1, 7}}}};
    }
    if (type.ends_with("/get_mesh_json_file")) {
        return json::object{{"file", json::object{{"name", "mesh.json"}, {"content", encodeBase64(mesh_)}}}};
    }
    if (type.ends_with("/set_mesh_json_file")) {
        auto decoded = decodeBase64(stringOf(parameters, "content"));
        if (!decoded) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID,
                                               messages::PARAMETER_FORMAT_INVALID, "content",
                                               "standard Base64"));
        }
        mesh_ = std::move(*decoded);
        return json::object{};
    }
    if (type.ends_with("/set_calibration_data")) {
        const auto* data = parameters.if_contains("data");
        calibrationData_[std::string(stringOf(parameters, "calibration_type")) + "|" +
                         std::string(stringOf(parameters, "calibration_path"))] =
            data != nullptr ? *data : json::value();
        return json::object{};
    }
    if (type.ends_with("/get_calibration_data")) {
        const auto found = calibrationData_.find(std::string(stringOf(parameters, "calibration_type")) + "|" +
                                                 std::string(stringOf(parameters, "calibration_path")));
        return json::object{{"data", found != calibrationData_.end()
                                         ? found->second
                                         : json::value{{"type", "FLOAT"}, {"value", 1.0}}}};
    }
    // beep, sleep, calibrate, reenumerate_hardware: their time is all.
    return json::object{};
}

}  // namespace velmar::emulator
