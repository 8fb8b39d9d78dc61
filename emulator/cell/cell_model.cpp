#include "emulator/cell/cell_model.hpp"

#include "emulator/cell/randles_cell.hpp"
#include "emulator/cell/redox_cell.hpp"
#include "emulator/cell/simple_cells.hpp"

#include <charconv>
#include <cmath>
#include <functional>
#include <map>
#include <numbers>

namespace velmar::emulator {

void GaussianNoise::reset() {
    random_.seed(seed_);
    haveSpare_ = false;
}

double GaussianNoise::apply(double value) {
    if (sigma_ == 0.0) return value;
    if (haveSpare_) {
        haveSpare_ = false;
        return value + sigma_ * spare_;
    }
    // 53 random bits to (0, 1]; u1 never 0 so the logarithm is finite.
    const auto uniform = [this] { return (static_cast<double>(random_() >> 11) + 1.0) * 0x1.0p-53; };
    const double u1 = uniform();
    const double u2 = uniform();
    const double radius = std::sqrt(-2.0 * std::log(u1));
    spare_ = radius * std::sin(2.0 * std::numbers::pi * u2);
    haveSpare_ = true;
    return value + sigma_ * radius * std::cos(2.0 * std::numbers::pi * u2);
}

namespace {

/// "key=value" pairs of a spec, in the order written.
std::expected<std::map<std::string, std::string, std::less<>>, std::string> splitPairs(std::string_view text) {
    std::map<std::string, std::string, std::less<>> pairs;
    while (!text.empty()) {
        const auto comma = text.find(',');
        const std::string_view item = text.substr(0, comma);
        text = comma == std::string_view::npos ? std::string_view() : text.substr(comma + 1);
        if (item.empty()) continue;
        const auto equals = item.find('=');
        if (equals == std::string_view::npos || equals == 0) {
            return std::unexpected("cell spec: expected key=value, got '" + std::string(item) + "'");
        }
        pairs[std::string(item.substr(0, equals))] = std::string(item.substr(equals + 1));
    }
    return pairs;
}

std::expected<double, std::string> toNumber(std::string_view key, std::string_view text) {
    double value = 0.0;
    const auto* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, value);
    if (ec != std::errc() || ptr != end) {
        return std::unexpected("cell spec: '" + std::string(key) + "' is not a number: '" + std::string(text) + "'");
    }
    return value;
}

/// Reads the pairs into the named targets; refuses unknown keys and malformed numbers.
std::expected<void, std::string> assign(std::string_view kind,
                                        const std::map<std::string, std::string, std::less<>>& pairs,
                                        const std::map<std::string_view, double*>& numbers, std::uint64_t* seed) {
    for (const auto& [key, text] : pairs) {
        if (key == "seed" && seed != nullptr) {
            const auto* end = text.data() + text.size();
            const auto [ptr, ec] = std::from_chars(text.data(), end, *seed);
            if (ec != std::errc() || ptr != end) return std::unexpected("cell spec: 'seed' is not an unsigned integer");
            continue;
        }
        const auto target = numbers.find(key);
        if (target == numbers.end()) {
            return std::unexpected("cell spec: unknown key '" + key + "' for kind '" + std::string(kind) + "'");
        }
        auto value = toNumber(key, text);
        if (!value) return std::unexpected(value.error());
        *target->second = *value;
    }
    return {};
}

std::expected<std::unique_ptr<CellModel>, std::string> fail(std::string text) { return std::unexpected(std::move(text)); }

}  // namespace

std::expected<std::unique_ptr<CellModel>, std::string> parseCellSpec(std::string_view spec) {
    const auto colon = spec.find(':');
    const std::string_view kind = spec.substr(0, colon);
    const std::string_view rest = colon == std::string_view::npos ? std::string_view() : spec.substr(colon + 1);
    auto pairs = splitPairs(rest);
    if (!pairs) return fail(pairs.error());

    if (kind == "resistor") {
        ResistorCell::Parameters p;
        auto ok = assign(kind, *pairs, {{"R", &p.resistance}, {"noise", &p.currentNoise}, {"vnoise", &p.potentialNoise}},
                         &p.seed);
        if (!ok) return fail(ok.error());
        if (!(p.resistance > 0.0)) return fail("cell spec: 'R' must be positive");
        return std::make_unique<ResistorCell>(p);
    }
    if (kind == "rc") {
        RcCell::Parameters p;
        auto ok = assign(kind, *pairs,
                         {{"R", &p.resistance},
                          {"C", &p.capacitance},
                          {"Ru", &p.seriesResistance},
                          {"noise", &p.currentNoise},
                          {"vnoise", &p.potentialNoise}},
                         &p.seed);
        if (!ok) return fail(ok.error());
        if (!(p.resistance > 0.0) || !(p.capacitance > 0.0) || !(p.seriesResistance >= 0.0)) {
            return fail("cell spec: 'R' and 'C' must be positive and 'Ru' not negative");
        }
        return std::make_unique<RcCell>(p);
    }
    if (kind == "randles" || kind == "cpe") {
        RandlesCell::Parameters p;
        p.kind = std::string(kind);
        if (kind == "cpe") {
            p.cpeCoefficient = 1e-5;
            p.cpeExponent = 0.8;
            p.warburg = 0.0;
        }
        auto ok = assign(kind, *pairs,
                         {{"Rs", &p.seriesResistance},
                          {"Rct", &p.chargeTransfer},
                          {"Cdl", &p.capacitance},
                          {"Q", &p.cpeCoefficient},
                          {"n", &p.cpeExponent},
                          {"sigma", &p.warburg},
                          {"noise", &p.currentNoise},
                          {"vnoise", &p.potentialNoise}},
                         &p.seed);
        if (!ok) return fail(ok.error());
        if (!(p.seriesResistance >= 0.0) || !(p.chargeTransfer > 0.0) || !(p.capacitance > 0.0) ||
            !(p.cpeCoefficient >= 0.0) || !(p.cpeExponent > 0.0 && p.cpeExponent <= 1.0) || !(p.warburg >= 0.0) ||
            std::isinf(p.seriesResistance) || std::isinf(p.capacitance) || std::isinf(p.cpeCoefficient) ||
            std::isinf(p.warburg) || (p.cpeExponent < 1.0 && !(p.cpeCoefficient > 0.0))) {
            return fail("cell spec: " + std::string(kind) +
                        " parameters out of range (Rct, Cdl positive, Rct may be inf; Rs, sigma not negative; "
                        "0 < n <= 1; Q positive when n < 1)");
        }
        return std::make_unique<RandlesCell>(p);
    }
    if (kind == "redox" || kind.empty()) {
        RedoxCell::Parameters p;
        double diffusion = std::nan("");
        auto ok = assign("redox", *pairs,
                         {{"E0", &p.formalPotential},
                          {"n", &p.electrons},
                          {"c", &p.bulkOxidised},
                          {"cR", &p.bulkReduced},
                          {"D", &diffusion},
                          {"DO", &p.diffusionOxidised},
                          {"DR", &p.diffusionReduced},
                          {"A", &p.area},
                          {"k0", &p.rateConstant},
                          {"alpha", &p.transferCoefficient},
                          {"Cdl", &p.doubleLayerCapacitance},
                          {"Ru", &p.uncompensatedResistance},
                          {"T", &p.temperature},
                          {"noise", &p.currentNoise},
                          {"vnoise", &p.potentialNoise}},
                         &p.seed);
        if (!ok) return fail(ok.error());
        if (!std::isnan(diffusion)) {
            if (!pairs->contains("DO")) p.diffusionOxidised = diffusion;
            if (!pairs->contains("DR")) p.diffusionReduced = diffusion;
        }
        if (!(p.electrons > 0.0) || !(p.diffusionOxidised > 0.0) || !(p.diffusionReduced > 0.0) ||
            !(p.area > 0.0) || !(p.rateConstant > 0.0) || !(p.temperature > 0.0) ||
            !(p.transferCoefficient > 0.0 && p.transferCoefficient < 1.0) || p.bulkOxidised < 0.0 ||
            p.bulkReduced < 0.0 || p.doubleLayerCapacitance < 0.0 || p.uncompensatedResistance < 0.0) {
            return fail("cell spec: redox parameters out of range (n, D, A, k0, T positive; 0 < alpha < 1; "
                        "c, cR, Cdl, Ru not negative)");
        }
        return std::make_unique<RedoxCell>(p);
    }
    return fail("cell spec: unknown kind '" + std::string(kind) + "' (expected resistor, rc, randles, cpe or redox)");
}

}  // namespace velmar::emulator
