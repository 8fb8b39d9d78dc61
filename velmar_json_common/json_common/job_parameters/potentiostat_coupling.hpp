#pragma once

#include <boost/describe/enum.hpp>
#include <boost/json/fwd.hpp>

#include <cstdint>
#include <optional>
#include <string_view>

namespace velmar {

/// The feedback mode of a potentiostat.
enum class PotentiostatCoupling : std::uint32_t { POTENTIOSTATIC = 0, GALVANOSTATIC = 1, FRA_PROBE = 2 };
BOOST_DESCRIBE_ENUM(PotentiostatCoupling, POTENTIOSTATIC, GALVANOSTATIC, FRA_PROBE)

/// The calibration kinds; only DC is offered to users. Described in the order in which they
/// are offered (which differs from the values on purpose); the wire text is the lower-case name.
enum class CalibrationTypesEnum : std::uint32_t {
    DUMP = 0,
    LOAD = 1,
    DC = 2,
    MAIN_SHUNTS_DC = 3,
    EXTERNAL_POTENTIOSTAT_DC = 4,
    FILTER = 5,
    GAIN = 6,
    MUX_FILTER = 7,
    MUX_GAIN = 8,
    MUX4_FILTER = 9,
    MUX4_GAIN = 10,
    MUX4_DC_GAIN = 11,
    VOLTAGE_RANGE = 12,
    SHUNT_OPEN = 13,
    SHUNT_LOAD = 14,
    SHUNT_SHORT = 15,
    SHUNT_REFERENCE = 16,
    MAIN_VOLTAGE_RANGE = 17,
    MAIN_SHUNT_OPEN = 18,
    MAIN_SHUNT_LOAD = 19,
    MAIN_SHUNT_SHORT = 20,
    REFERENCE_ADC = 21,
};
BOOST_DESCRIBE_ENUM(CalibrationTypesEnum, DC, MAIN_SHUNTS_DC, EXTERNAL_POTENTIOSTAT_DC, DUMP, LOAD, FILTER, GAIN,
                    MUX_FILTER, MUX_GAIN, MUX4_FILTER, MUX4_GAIN, MUX4_DC_GAIN, VOLTAGE_RANGE, SHUNT_OPEN, SHUNT_LOAD,
                    SHUNT_SHORT, SHUNT_REFERENCE, MAIN_VOLTAGE_RANGE, MAIN_SHUNT_OPEN, MAIN_SHUNT_LOAD,
                    MAIN_SHUNT_SHORT, REFERENCE_ADC)

/// The data type of calibration data; the wire text is the lower-case name.
enum class CalibrationDataTypeEnum : std::uint32_t { UNDEFINED = 0, FLOAT = 1, FLOAT_VECTOR = 2, SPECTRA = 3, STRING = 4 };
BOOST_DESCRIBE_ENUM(CalibrationDataTypeEnum, UNDEFINED, FLOAT, FLOAT_VECTOR, SPECTRA, STRING)

/// Name of a coupling ("POTENTIOSTATIC", "GALVANOSTATIC", "FRA_PROBE"); the JSON form is this name.
std::string_view potentiostatCouplingName(PotentiostatCoupling coupling);
std::optional<PotentiostatCoupling> potentiostatCouplingFromName(std::string_view name);
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, PotentiostatCoupling coupling);
/// Throws std::invalid_argument for a text outside the three names.
PotentiostatCoupling tag_invoke(const boost::json::value_to_tag<PotentiostatCoupling>&, const boost::json::value& jv);

/// The wire text of a calibration type; a value outside 0 to 21 yields "dc".
std::string_view calibrationTypesEnumToString(CalibrationTypesEnum type);
/// The wire text of a calibration data type ("float", "float_vector", "spectra", "string";
/// "undefined"); a value outside the enumeration yields "undefined".
std::string_view calibrationDataTypeName(CalibrationDataTypeEnum type);

}  // namespace velmar
