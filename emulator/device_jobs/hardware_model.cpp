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
constexpr auto kVoltageRanges = HardwareModel::VOLTAGE_RANGES;
constexpr std::array<double, 2> kComplianceRanges{10.0, 20.0};
constexpr int kCurrentRanges = 9;  // 1 A down to 10 nA, a decade each
constexpr int kGains = 4;          // 1, 10, 100, 1000
constexpr double kMaxCurrent = HardwareModel::MAX_CURRENT;


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

ErrorObject HardwareModel::pathInvalid(std::string_view path, std::string_view key) {
    return ErrorObject(ErrorCodeEnum::PARAMETER_SYMBOLIC_PATH_INVALID, job_messages::PATH_INVALID, path, key);
}

std::string_view HardwareModel::converterOf(std::string_view adc) {
    const auto tilde = adc.find('~');
    return tilde == std::string_view::npos ? adc : adc.substr(tilde + 1);
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

ErrorObject HardwareModel::validate(std::string_view type, const json::object& parameters,
                                    const ResourceStore& resources) const {
    std::lock_guard lock(mutex_);
    if (parameters.contains("potentiostat")) {
        const auto* name = parameters.at("potentiostat").if_string();
        if (name == nullptr || !potentiostats_.contains(std::string_view(*name)))
            return pathInvalid(name != nullptr ? std::string_view(*name) : std::string_view(), "potentiostat");
    }
    const auto* job = findHardwareJob(type);
    return job != nullptr && job->validate != nullptr ? job->validate(*this, parameters, resources) : ErrorObject{};
}

double HardwareModel::duration(std::string_view type, const json::object& parameters) const {
    const auto* job = findHardwareJob(type);
    return job != nullptr && job->duration != nullptr ? job->duration(parameters) : DEFAULT_JOB_SECONDS;
}

Result HardwareModel::execute(std::string_view type, const json::object& parameters, ResourceStore& resources) {
    std::lock_guard lock(mutex_);
    const auto* job = findHardwareJob(type);
    return job != nullptr && job->execute != nullptr ? job->execute(*this, parameters, resources) : json::object{};
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

}  // namespace velmar::emulator
