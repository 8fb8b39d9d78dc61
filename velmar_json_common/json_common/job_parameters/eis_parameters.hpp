#pragma once

// Parameter records of the impedance kinds. The "frequency_range" object selects its layout
// by its own "type": "generate" (logarithmic points between the minimum and the maximum
// frequency) or "table" (explicit points). "drift_correction" is optional.

#include "json_common/detail/json_declare.hpp"
#include "json_common/jobs/job_status.hpp"

#include <boost/describe/class.hpp>

#include <optional>
#include <string>
#include <vector>

namespace velmar {

struct EisFrequencyRangeGenerate {
    std::string type = "generate";
    double min_frequency = 100.0;
    double max_frequency = 1000000.0;
    double start_frequency = 10000.0;
    /// Logarithmically equidistant steps between 66 Hz and the maximum frequency.
    int points_per_decade_upper = 20;
    /// Density at the minimum frequency, changed linearly from the upper density at 66 Hz.
    int points_per_decade_lower = 5;
    double pre_duration = 0.1;
    int pre_waves = 1;
    double meas_duration = 1.0;
    int meas_waves = 5;
    double amplitude = 0.01;
};
BOOST_DESCRIBE_STRUCT(EisFrequencyRangeGenerate, (),
                      (type, min_frequency, max_frequency, start_frequency, points_per_decade_upper,
                       points_per_decade_lower, pre_duration, pre_waves, meas_duration, meas_waves, amplitude))

struct EisMultisineFrequencyRangeGenerate {
    std::string type = "generate";
    double min_frequency = 100.0;
    double max_frequency = 1000000.0;
    double start_frequency = 10000.0;
    int points_per_decade_upper = 20;
    int points_per_decade_lower = 5;
    double pre_duration = 0.1;
    int pre_waves = 1;
    double meas_duration = 1.0;
    int meas_waves = 5;
    double amplitude = 0.01;
    int multisine_pre_waves = 1;
    int multisine_meas_waves = 5;
    int multisine_decades = 1;
    int multisine_starting_harmonic = 1;
};
BOOST_DESCRIBE_STRUCT(EisMultisineFrequencyRangeGenerate, (),
                      (type, min_frequency, max_frequency, start_frequency, points_per_decade_upper,
                       points_per_decade_lower, pre_duration, pre_waves, meas_duration, meas_waves, amplitude,
                       multisine_pre_waves, multisine_meas_waves, multisine_decades, multisine_starting_harmonic))

/// One point of a frequency table.
struct EisParametersFrequencyTableEntry {
    double frequency = 1000.0;
    double amplitude = 0.01;
    double pre_duration = 0.1;
    int pre_waves = 1;
    double meas_duration = 1.0;
    int meas_waves = 5;
};
BOOST_DESCRIBE_STRUCT(EisParametersFrequencyTableEntry, (),
                      (frequency, amplitude, pre_duration, pre_waves, meas_duration, meas_waves))

/// The "table" frequency range of a potentiostatic impedance measurement.
struct EisFrequencyTable {
    std::string type = "table";
    std::vector<EisParametersFrequencyTableEntry> spectrum;
};
BOOST_DESCRIBE_STRUCT(EisFrequencyTable, (), (type, spectrum))

/// The "table" frequency range of a galvanostatic impedance measurement.
struct GeisVaFrequencyTable {
    std::string type = "table";
    std::vector<EisParametersFrequencyTableEntry> spectrum;
};
BOOST_DESCRIBE_STRUCT(GeisVaFrequencyTable, (), (type, spectrum))

/// One harmonic of a multisine table with its amplitude.
struct EisMultiSineTableEntry {
    int harmonic = 1;
    double amplitude = 0.01;
};
BOOST_DESCRIBE_STRUCT(EisMultiSineTableEntry, (), (harmonic, amplitude))

/// The "table" frequency range of a multisine measurement: harmonics of one fundamental.
struct EisMultiSineTableRange {
    std::string type = "table";
    double fundamental_frequency = 1.0;
    std::vector<EisMultiSineTableEntry> harmonics;
    double pre_duration = 0.1;
    int pre_waves = 1;
    double meas_duration = 1.0;
    int meas_waves = 5;
};
BOOST_DESCRIBE_STRUCT(EisMultiSineTableRange, (),
                      (type, fundamental_frequency, harmonics, pre_duration, pre_waves, meas_duration, meas_waves))

struct EisParametersGenerate {
    double bias = 0.0;
    std::optional<DriftCorrection> drift_correction;
    EisFrequencyRangeGenerate frequency_range;
};
BOOST_DESCRIBE_STRUCT(EisParametersGenerate, (), (bias, drift_correction, frequency_range))

struct EisParametersFrequencyTable {
    double bias = 0.0;
    std::optional<DriftCorrection> drift_correction;
    EisFrequencyTable frequency_range;
};
BOOST_DESCRIBE_STRUCT(EisParametersFrequencyTable, (), (bias, drift_correction, frequency_range))

struct EisMultisineParametersGenerate {
    double bias = 0.0;
    std::optional<DriftCorrection> drift_correction;
    bool multisine_wave_in_result = false;
    EisMultisineFrequencyRangeGenerate frequency_range;
};
BOOST_DESCRIBE_STRUCT(EisMultisineParametersGenerate, (),
                      (bias, drift_correction, multisine_wave_in_result, frequency_range))

struct EisMultiSineTable {
    double bias = 0.0;
    std::optional<DriftCorrection> drift_correction;
    bool multisine_wave_in_result = false;
    EisMultiSineTableRange frequency_range;
};
BOOST_DESCRIBE_STRUCT(EisMultiSineTable, (), (bias, drift_correction, multisine_wave_in_result, frequency_range))

struct GeisVaParametersGenerate {
    double bias = 0.0;
    std::optional<DriftCorrection> drift_correction;
    double minimum_current_amplitude = 0.0001;
    double maximum_current_amplitude = 0.01;
    EisFrequencyRangeGenerate frequency_range;
};
BOOST_DESCRIBE_STRUCT(GeisVaParametersGenerate, (),
                      (bias, drift_correction, minimum_current_amplitude, maximum_current_amplitude, frequency_range))

struct GeisVaParametersFrequencyTable {
    double bias = 0.0;
    std::optional<DriftCorrection> drift_correction;
    double minimum_current_amplitude = 0.0001;
    double maximum_current_amplitude = 0.01;
    GeisVaFrequencyTable frequency_range;
};
BOOST_DESCRIBE_STRUCT(GeisVaParametersFrequencyTable, (),
                      (bias, drift_correction, minimum_current_amplitude, maximum_current_amplitude, frequency_range))

VELMAR_DECLARE_JSON(EisParametersGenerate);
VELMAR_DECLARE_JSON(EisParametersFrequencyTable);
VELMAR_DECLARE_JSON(EisMultisineParametersGenerate);
VELMAR_DECLARE_JSON(EisMultiSineTable);
VELMAR_DECLARE_JSON(GeisVaParametersGenerate);
VELMAR_DECLARE_JSON(GeisVaParametersFrequencyTable);

}  // namespace velmar
