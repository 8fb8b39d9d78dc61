#include "emulator/ac_jobs/ac_signals.hpp"

#include "emulator/ac_jobs/ac_messages.hpp"
#include "emulator/ac_jobs/ac_plan.hpp"

#include <algorithm>
#include <charconv>

namespace velmar::emulator {

namespace {

constexpr const char* kOhm = "\u2126";

const PathInfo* findPath(const HardwareInfo& info, std::string_view urn) {
    for (const auto& path : info.paths) {
        if (path.urn == urn) return &path;
    }
    return nullptr;
}

/// The MUX4 channel number n of "MUX4:c:CHn~...", or 0.
int muxChannel(std::string_view urn) {
    const auto at = urn.find(":CH");
    if (!urn.starts_with("MUX4:") || at == std::string_view::npos) return 0;
    int channel = 0;
    const auto* first = urn.data() + at + 3;
    const auto [end, ec] = std::from_chars(first, urn.data() + urn.size(), channel);
    return ec == std::errc() && channel > 0 ? channel : 0;
}

AcPathSource sourceOf(const Channel& channel, const PathInfo* path) {
    AcPathSource source;
    source.polynomial = channel.polynomial;
    source.unit = channel.unit;
    if (path == nullptr) return source;
    for (const auto& filter : path->filter_ranges) source.filterRanges.push_back(filter.max_frequency);
    std::ranges::sort(source.filterRanges);
    if (path->source == "voltage") {
        source.quantity = AcPathSource::Quantity::POTENTIAL;
    } else if (path->source == "shunt") {
        source.quantity = AcPathSource::Quantity::CURRENT;
    } else if (const int n = muxChannel(path->urn); n > 0) {
        source.quantity = channel.dimension.starts_with("current") ? AcPathSource::Quantity::CURRENT
                                                                    : AcPathSource::Quantity::POTENTIAL;
        source.scale = 1.0 / n;
    }
    return source;
}

ErrorObject configurationIssue(std::string_view format, auto&&... parameters) {
    return ErrorObject(ErrorCodeEnum::HARDWARE_CONFIGURATION_ISSUE, format, std::forward<decltype(parameters)>(parameters)...);
}

}  // namespace

double AcPathSource::convert(double raw) const {
    double value = 0.0;
    for (auto c = polynomial.coefficients.rbegin(); c != polynomial.coefficients.rend(); ++c) value = value * raw + *c;
    return value;
}

double AcPathSource::slope(double raw) const {
    double value = 0.0;
    const auto& c = polynomial.coefficients;
    for (std::size_t k = c.size(); k-- > 1;) value = value * raw + double(k) * c[k];
    return value;
}

std::size_t AcPathSource::filterIndex(double frequency) const {
    for (std::size_t i = 0; i < filterRanges.size(); ++i) {
        if (frequency <= filterRanges[i]) return i;
    }
    return filterRanges.empty() ? 0 : filterRanges.size() - 1;
}

std::vector<ColumnHeader> acMetaColumns() {
    return {{"frequency", "Hz", ""}, {"periods", "", ""}, {"time", "s", ""}, {"wave_id", "", ""}, {"wave_size", "", ""}};
}

std::vector<ColumnHeader> acImpedanceColumns() {
    return {{"|impedance|", kOhm, ""},      {"phase", "rad", ""},           {"impedance error", "", ""},
            {"phase error", "", ""},        {"impedance drift", "", ""},    {"phase drift", "", ""}};
}

std::vector<ColumnHeader> acPathColumns(const std::string& unit) {
    return {{"dc", unit, ""}, {"gain", "", ""}, {"filter", "", ""}, {"thd", "", ""}, {"drift", "", ""}};
}

std::vector<ColumnHeader> acPotentiostatColumns() {
    return {{"dc", "V", ""}, {"shunt", kOhm, ""}, {"bandwith", "", ""}, {"filter", "", ""}};
}

std::expected<AcSignals, ErrorObject> acSignals(const HardwareSettings& settings, const HardwareInfo& info,
                                                const AcPlan& plan) {
    AcSignals out;
    auto& header = out.header;
    header.measurement_type = LiveDataHeaderEis::MEASUREMENT_TYPE;
    header.measurement_type_short = LiveDataHeaderEis::MEASUREMENT_TYPE_SHORT;
    header.meta = acMetaColumns();
    if (settings.impedance_configurations.empty()) return std::unexpected(configurationIssue(ac_messages::NO_IMPEDANCE));

    const double highest = plan.highestFrequency();
    for (const auto& channel : settings.sync_channels) {
        auto source = sourceOf(channel, findPath(info, channel.uri));
        if (highest > source.maxFrequency()) {
            return std::unexpected(
                configurationIssue(ac_messages::ABOVE_FILTER_RANGE, highest, channel.uri, source.maxFrequency()));
        }
        header.paths.emplace_back(channel.dimension, channel.uri, acPathColumns(channel.unit), channel.polynomial);
        out.syncSources.push_back(std::move(source));
    }
    for (const auto& channel : settings.async_channels) {
        header.async_paths.emplace_back(channel.dimension, channel.uri, acPathColumns(channel.unit), channel.polynomial);
        out.asyncSources.push_back(sourceOf(channel, findPath(info, channel.uri)));
    }
    const auto syncIndex = [&](const std::string& uri) {
        for (std::size_t i = 0; i < header.paths.size(); ++i) {
            if (header.paths[i].uri == uri) return i;
        }
        return header.paths.size();
    };
    for (const auto& impedance : settings.impedance_configurations) {
        const auto name = impedance.impedance_name.empty() ? impedance.numerator + "/" + impedance.denominator
                                                           : impedance.impedance_name;
        const auto numerator = syncIndex(impedance.numerator);
        const auto denominator = syncIndex(impedance.denominator);
        if (numerator == header.paths.size())
            return std::unexpected(configurationIssue(ac_messages::PATH_NOT_SYNCHRONOUS, name, impedance.numerator));
        if (denominator == header.paths.size())
            return std::unexpected(configurationIssue(ac_messages::PATH_NOT_SYNCHRONOUS, name, impedance.denominator));
        const auto& coefficients = out.syncSources[denominator].polynomial.coefficients;
        const bool flat = std::all_of(coefficients.begin() + std::min<std::ptrdiff_t>(1, coefficients.size()),
                                      coefficients.end(), [](double c) { return c == 0.0; });
        if (out.syncSources[denominator].quantity == AcPathSource::Quantity::NOTHING || flat) {
            return std::unexpected(configurationIssue(ac_messages::DENOMINATOR_SILENT, name, impedance.denominator));
        }
        header.impedances.emplace_back(impedance.numerator, impedance.denominator, acImpedanceColumns(),
                                       impedance.impedance_name);
        out.impedancePaths.emplace_back(numerator, denominator);
    }
    for (const auto& potentiostat : settings.output_potentiostats)
        header.potentiostats.emplace_back(potentiostat.uri, acPotentiostatColumns());
    header.columns = header.allColumns();
    return out;
}

}  // namespace velmar::emulator
