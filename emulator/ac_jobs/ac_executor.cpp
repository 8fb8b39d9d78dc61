#include "emulator/ac_jobs/ac_executor.hpp"

#include "emulator/ac_jobs/ac_plan.hpp"
#include "emulator/ac_jobs/ac_result.hpp"
#include "emulator/ac_jobs/ac_signals.hpp"
#include "emulator/cell/cell_model.hpp"
#include "emulator/core/emulator_messages.hpp"
#include "emulator/device_jobs/device_limits.hpp"
#include "emulator/device_jobs/hardware_model.hpp"

#include <boost/json.hpp>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace velmar::emulator {

namespace json = boost::json;
using Complex = std::complex<double>;

namespace {

constexpr std::string_view kAcKinds[] = {"eis",     "eis_table",      "eis_multisine", "eis_multisine_table",
                                         "geis_va", "geis_va_table"};
/// An open cell reads as this impedance, a short circuit as the other (ohm).
constexpr double kOpenCell = 1e15;
constexpr double kShortCell = 1e-9;
constexpr int kCurrentRanges = 9;

double finite(double value) { return std::isfinite(value) ? value : 0.0; }

struct Prepared {
    AcPlan plan;
    AcSignals signals;
};

std::expected<Prepared, ErrorObject> prepare(const ExecutorSetup& setup) {
    auto plan = planAcJob(setup.type, setup.parameters);
    if (!plan) return std::unexpected(std::move(plan.error()));
    auto signals = acSignals(setup.hardware.settings(), setup.hardware.info(), *plan);
    if (!signals) return std::unexpected(std::move(signals.error()));
    // What the result holds, before anything is allocated for it.
    double values = static_cast<double>(plan->rowCount()) * static_cast<double>(signals->header.totalColumnCount());
    if (plan->waveInResult) {
        for (const auto& m : plan->measurements) {
            values += static_cast<double>(m.points.size() * m.waveSize() * signals->header.paths.size());
        }
    }
    if (values > kMaxResultValues) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_HIGH, messages::PARAMETER_VALUE_TOO_HIGH,
                                           "samples", values, kMaxResultValues));
    }
    return Prepared{std::move(*plan), std::move(*signals)};
}

ErrorObject validateAc(const ExecutorSetup& setup) {
    auto prepared = prepare(setup);
    return prepared ? ErrorObject{} : prepared.error();
}

struct OperatingPoint {
    double potential = 0.0;
    double current = 0.0;
};

/// The DC state about which the cell is measured: the bias potential and the steady current
/// it drives; galvanostatically the potential at which the steady current is the bias (the
/// open-circuit potential for zero, the output limit when the cell cannot carry it).
OperatingPoint operatingPoint(const CellModel& cell, const AcPlan& plan) {
    if (!plan.galvanostatic) return {plan.bias, cell.steadyStateCurrent(plan.bias)};
    if (plan.bias == 0.0) return {cell.openCircuitPotential(), 0.0};
    double low = -limits::kSetPoint, high = limits::kSetPoint;
    if (cell.steadyStateCurrent(high) < plan.bias) return {high, plan.bias};
    if (cell.steadyStateCurrent(low) > plan.bias) return {low, plan.bias};
    for (int i = 0; i < 100; ++i) {
        const double middle = 0.5 * (low + high);
        (cell.steadyStateCurrent(middle) < plan.bias ? low : high) = middle;
    }
    return {0.5 * (low + high), plan.bias};
}

Complex boundedImpedance(Complex z) {
    const double magnitude = std::abs(z);
    const double phase = std::isfinite(std::arg(z)) && std::isfinite(magnitude) ? std::arg(z) : 0.0;
    if (!(magnitude >= kShortCell)) return std::polar(kShortCell, phase);
    if (!(magnitude <= kOpenCell)) return std::polar(kOpenCell, phase);
    return z;
}

/// The phasor P of a sampled signal x_k = dc + |P| sin(2 pi h k / S + arg P) over whole periods.
Complex phasorOf(std::span<const double> wave, unsigned harmonic, std::size_t samplesPerPeriod) {
    Complex sum = 0.0;
    const double step = 2.0 * std::numbers::pi * harmonic / static_cast<double>(samplesPerPeriod);
    for (std::size_t k = 0; k < wave.size(); ++k) sum += wave[k] * std::polar(1.0, -step * static_cast<double>(k));
    return Complex(0.0, 1.0) * sum * (2.0 / static_cast<double>(wave.size()));
}

class AcExecutor final : public MeasurementExecutor {
public:
    AcExecutor(Prepared prepared, std::unique_ptr<CellModel> cell)
        : plan_(std::move(prepared.plan)),
          signals_(std::move(prepared.signals)),
          cell_(std::move(cell)),
          noise_(cell_->noise()),
          potentialNoise_(noise_.potential, noise_.seed + 101),
          currentNoise_(noise_.current, noise_.seed + 102),
          operating_(operatingPoint(*cell_, plan_)) {}

    void start(JobRunContext& context) override {
        context.sendEvent(json::object{{"type", "LIVE_DATA_HEADER_EIS"},
                                       {"job_id", context.jobId()},
                                       {"header", json::value_from(signals_.header)},
                                       {"job_info", context.jobInfo()}});
    }

    std::optional<ExecutorOutcome> advance(double elapsed, JobRunContext& context) override {
        while (next_ < plan_.measurements.size()) {
            const auto& m = plan_.measurements[next_];
            if (!begun_) begin(m);
            const double measuring = begin_ + m.preSeconds();
            const double end = begin_ + m.seconds();
            const double fraction = elapsed >= end ? 1.0 : std::clamp((elapsed - measuring) / (end - measuring), 0.0, 1.0);
            sendPreview(static_cast<std::size_t>(std::floor(fraction * static_cast<double>(m.waveSize()))), m, context);
            if (elapsed < end) return std::nullopt;
            emitRows(m, end, context);
            begin_ = end;
            ++next_;
            begun_ = false;
        }
        return ExecutorOutcome{};
    }

    void stop() override { next_ = plan_.measurements.size(); }

    std::optional<JobResultData> resultData(const json::object& finalJobInfo) const override {
        const auto wave = [this](std::size_t row, std::size_t path) -> std::span<const double> {
            if (!plan_.waveInResult) return {};
            return waves_.at(rowMeasurement_.at(row)).at(path);
        };
        return JobResultData{"DATASET_AC", acResultHeader(signals_.header, finalJobInfo, rows_.size()),
                             encodeAcResult(signals_.header, rows_, wave)};
    }

    void finish(const json::object& finalJobInfo, JobRunContext& context) override {
        context.sendEvent(
            json::object{{"type", "LIVE_DATA_FINISHED"}, {"job_id", context.jobId()}, {"job_info", finalJobInfo}});
    }

private:
    /// What a path sees of the cell: its raw DC value and the phasor of point i.
    double rawDc(const AcPathSource& source) const {
        switch (source.quantity) {
            case AcPathSource::Quantity::POTENTIAL:
                return source.scale * operating_.potential;
            case AcPathSource::Quantity::CURRENT:
                return source.scale * operating_.current;
            case AcPathSource::Quantity::NOTHING:
                break;
        }
        return 0.0;
    }
    Complex rawPhasor(const AcPathSource& source, std::size_t point) const {
        switch (source.quantity) {
            case AcPathSource::Quantity::POTENTIAL:
                return source.scale * excitation_[point].first;
            case AcPathSource::Quantity::CURRENT:
                return source.scale * excitation_[point].second;
            case AcPathSource::Quantity::NOTHING:
                break;
        }
        return 0.0;
    }
    /// The phasor of point i relative to the cell current's: what makes the quotient of a
    /// potential path over a current path the cell's impedance to the last bit.
    Complex relativePhasor(const AcPathSource& source, std::size_t point) const {
        switch (source.quantity) {
            case AcPathSource::Quantity::POTENTIAL:
                return source.scale * impedance_[point];
            case AcPathSource::Quantity::CURRENT:
                return source.scale;
            case AcPathSource::Quantity::NOTHING:
                break;
        }
        return 0.0;
    }
    double sigma(const AcPathSource& source) const {
        return source.quantity == AcPathSource::Quantity::CURRENT ? noise_.current : noise_.potential;
    }
    bool noisy() const { return noise_.current > 0.0 || noise_.potential > 0.0; }

    // Works out the point's excitation and response and samples the waves.
    void begin(const AcMeasurement& m) {
        begun_ = true;
        sent_ = 0;
        excitation_.clear();
        impedance_.clear();
        for (const auto& point : m.points) {
            const Complex z =
                boundedImpedance(cell_->impedance(2.0 * std::numbers::pi * point.frequency, operating_.potential));
            impedance_.push_back(z);
            if (plan_.galvanostatic) {
                const double amplitude =
                    std::clamp(point.amplitude / std::abs(z), plan_.minCurrentAmplitude, plan_.maxCurrentAmplitude);
                excitation_.emplace_back(amplitude * z, amplitude);
            } else {
                excitation_.emplace_back(point.amplitude, point.amplitude / z);
            }
        }
        const std::size_t size = m.waveSize();
        const double step = 2.0 * std::numbers::pi / static_cast<double>(m.samplesPerPeriod);
        wave_.assign(signals_.syncSources.size(), std::vector<double>(size));
        for (std::size_t s = 0; s < signals_.syncSources.size(); ++s) {
            const auto& source = signals_.syncSources[s];
            auto& generator = source.quantity == AcPathSource::Quantity::CURRENT ? currentNoise_ : potentialNoise_;
            for (std::size_t k = 0; k < size; ++k) {
                double raw = rawDc(source);
                for (std::size_t i = 0; i < m.points.size(); ++i) {
                    const double angle = step * m.points[i].harmonic * static_cast<double>(k);
                    raw += (rawPhasor(source, i) * std::polar(1.0, angle)).imag();
                }
                wave_[s][k] = source.convert(generator.apply(raw));
            }
        }
    }

    void sendPreview(std::size_t due, const AcMeasurement& m, JobRunContext& context) {
        while (sent_ < due) {
            const std::size_t count = std::min(due - sent_, kWaveFragmentSamples);
            json::array fragments;
            for (const auto& wave : wave_) {
                json::array samples;
                samples.reserve(count);
                for (std::size_t k = sent_; k < sent_ + count; ++k) samples.emplace_back(finite(wave[k]));
                fragments.emplace_back(std::move(samples));
            }
            context.sendEvent(json::object{{"type", "LIVE_DATA_WAVES"},
                                           {"job_id", context.jobId()},
                                           {"paths_waves", std::move(fragments)},
                                           {"offset", sent_},
                                           {"full_wave_size", m.waveSize()}});
            sent_ += count;
        }
    }

    LiveDataRowEis row(const AcMeasurement& m, std::size_t i, double time) const {
        const auto& point = m.points[i];
        const double f = point.frequency;
        const double samples = static_cast<double>(m.waveSize());
        LiveDataRowEis row;
        for (const auto& [a, b] : signals_.impedancePaths) {
            const auto& na = signals_.syncSources[a];
            const auto& nb = signals_.syncSources[b];
            const double slopeA = na.slope(rawDc(na));
            const double slopeB = nb.slope(rawDc(nb));
            Complex numerator = slopeA * relativePhasor(na, i);
            Complex denominator = slopeB * relativePhasor(nb, i);
            double relativeError = 0.0;
            if (noisy()) {
                numerator = phasorOf(wave_[a], point.harmonic, m.samplesPerPeriod);
                denominator = phasorOf(wave_[b], point.harmonic, m.samplesPerPeriod);
                relativeError = std::sqrt(2.0 / samples) * std::hypot(sigma(na) * slopeA / std::abs(numerator),
                                                                     sigma(nb) * slopeB / std::abs(denominator));
            }
            const Complex z = denominator == 0.0 ? Complex(0.0) : numerator / denominator;
            const double magnitude = finite(std::abs(z));
            row.impedances.push_back({magnitude, finite(std::arg(z)), finite(magnitude * relativeError),
                                      finite(relativeError), 0.0, 0.0});
        }
        double peakCurrent = std::abs(operating_.current);
        for (const auto& e : excitation_) peakCurrent += std::abs(e.second);
        for (std::size_t s = 0; s < signals_.syncSources.size(); ++s) {
            const auto& source = signals_.syncSources[s];
            const double dc = rawDc(source);
            double amplitude = 0.0;
            for (std::size_t k = 0; k < m.points.size(); ++k) amplitude += std::abs(source.slope(dc) * rawPhasor(source, k));
            double gain = 1.0;
            while (gain < 1000.0 && amplitude * gain * 10.0 <= 1.0) gain *= 10.0;
            row.paths.push_back({finite(source.convert(dc)), gain, double(source.filterIndex(f)), 0.0, 0.0});
        }
        for (const auto& source : signals_.asyncSources) {
            row.async_paths.push_back({finite(source.convert(rawDc(source))), 1.0, double(source.filterIndex(f)), 0.0, 0.0});
        }
        // The current range whose maximum (1 A / 10^i) carries the peak current; its shunt is 10^i ohm.
        const int range = peakCurrent > 0.0
                              ? std::clamp(static_cast<int>(std::floor(-std::log10(peakCurrent))), 0, kCurrentRanges - 1)
                              : kCurrentRanges - 1;
        const double bandwidth = f < 1e5 ? 0.0 : f < 1e6 ? 1.0 : 2.0;
        const double filter = f <= 1e3 ? 0.0 : f <= 1e5 ? 1.0 : 2.0;
        for (std::size_t p = 0; p < signals_.header.potentiostats.size(); ++p) {
            row.potentiostats.push_back({finite(operating_.potential), std::pow(10.0, range), bandwidth, filter});
        }
        const bool wave = plan_.waveInResult;
        row.meta.push_back({f, m.measPeriods, time, wave ? double(next_) : -1.0, wave ? samples : 0.0});
        return row;
    }

    void emitRows(const AcMeasurement& m, double time, JobRunContext& context) {
        for (std::size_t i = 0; i < m.points.size(); ++i) {
            auto data = row(m, i, time);
            if (i == 0 && plan_.waveInResult) data.paths_waves = wave_;
            json::object event{{"type", "LIVE_DATA_ROW_EIS"}, {"job_id", context.jobId()}};
            auto lists = json::value_from(data);
            for (auto& member : lists.as_object()) event[member.key()] = std::move(member.value());
            context.sendEvent(std::move(event));
            data.paths_waves.clear();
            rows_.push_back(std::move(data));
            rowMeasurement_.push_back(waves_.size());
        }
        if (plan_.waveInResult) waves_.push_back(std::move(wave_));
        wave_.clear();
    }

    AcPlan plan_;
    AcSignals signals_;
    std::unique_ptr<CellModel> cell_;
    CellModel::Noise noise_;
    GaussianNoise potentialNoise_;
    GaussianNoise currentNoise_;
    OperatingPoint operating_;

    std::size_t next_ = 0;     ///< the measurement under way
    bool begun_ = false;
    double begin_ = 0.0;       ///< emulated seconds at which it began
    std::size_t sent_ = 0;     ///< samples of its wave previewed
    std::vector<std::pair<Complex, Complex>> excitation_;  ///< potential and current phasor per point
    std::vector<Complex> impedance_;                       ///< the cell's impedance per point
    NumberLists wave_;         ///< its wave per sync path

    std::vector<LiveDataRowEis> rows_;
    std::vector<std::size_t> rowMeasurement_;  ///< index into waves_ per row
    std::vector<NumberLists> waves_;           ///< per recorded measurement, per sync path
};

std::expected<std::unique_ptr<MeasurementExecutor>, ErrorObject> createAc(const ExecutorSetup& setup) {
    auto prepared = prepare(setup);
    if (!prepared) return std::unexpected(std::move(prepared.error()));
    return std::make_unique<AcExecutor>(std::move(*prepared),
                                        setup.hardware.makeCell(setup.hardware.outputPotentiostat()));
}

}  // namespace

void registerAcExecutors(MeasurementExecutorRegistry& registry) {
    for (const auto kind : kAcKinds) registry.add(std::string(kind), ExecutorRegistration{&validateAc, &createAc});
}

}  // namespace velmar::emulator
