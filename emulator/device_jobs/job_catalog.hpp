#pragma once

// The job kinds that the emulated RQ5 knows, and the checks that need no hardware state: the
// parameter keys and their JSON kinds, and the stop conditions.

#include "json_common/logging/error_object.hpp"

#include <boost/json/fwd.hpp>

#include <limits>
#include <span>
#include <string_view>

namespace velmar::emulator {

/// How a kind is run: DC and AC measurements and calibrations go through the queue only
/// (QUEUE_BYPASS_NOT_ALLOWED otherwise); control and information jobs may bypass it. Only DC
/// measurements take stop conditions.
enum class JobFamilyEnum { DC, AC, CALIBRATION, CONTROL };

/// The JSON kind that a parameter key must have.
enum class KeyKindEnum {
    NUMBER,   ///< any JSON number
    INTEGER,  ///< a JSON integer (or a double with an integral value)
    BOOL,
    STRING,
    SCALAR,         ///< boolean, number or string
    NUMBER_ARRAY,   ///< array of numbers
    INTEGER_ARRAY,  ///< array of integers
    ARRAY,          ///< array of anything (checked further by the kind)
    OBJECT,
};

/// No bound on a numeric key.
inline constexpr double kNoLimit = std::numeric_limits<double>::max();

struct ParameterKey {
    std::string_view name;
    KeyKindEnum kind;
    /// Inclusive range of a numeric key, or of every element of a numeric array. Checked
    /// before the value is used or converted, so that no later conversion can overflow.
    double low = -kNoLimit;
    double high = kNoLimit;
    /// Optional keys are checked (kind and range) only when present.
    bool required = true;
};

/// One job kind. `keys` are the keys of "parameters" that the device reads; further keys are
/// ignored.
/// `singleValue`: the completion carries a "result" object.
struct JobKind {
    std::string_view type;
    JobFamilyEnum family;
    bool singleValue;
    std::span<const ParameterKey> keys;
    /// Extra structural check for kinds with nested parameters (impedance, calibration
    /// service kinds): converts to the client's parameter record. May be null.
    ErrorObject (*recordCheck)(const boost::json::object& parameters);
};

/// The kind of a job type, or null (TYPE_NAME_UNKNOWN).
const JobKind* findJobKind(std::string_view type);

/// Every kind, in table order.
std::span<const JobKind> allJobKinds();

/// Checks that every required key of the kind is present (PARAMETER_MISSING), that every key
/// present has the right JSON kind (PARAMETER_FORMAT_INVALID) and lies within its range
/// (PARAMETER_VALUE_TOO_LOW / _TOO_HIGH), then the kind's record check.
ErrorObject checkParameterKeys(const JobKind& kind, const boost::json::object& parameters);

/// Checks the "stop_conditions" array of a job: only DC kinds take conditions; each element
/// is {"type","parameters"} of a known type with all its keys, a dimension among "time",
/// "voltage", "current", "charge", and minimum <= maximum. Every failure is
/// STOP_CONDITION_MISCONFIGURED.
ErrorObject checkStopConditions(const JobKind& kind, const boost::json::array& conditions);

/// The parameters of an impedance kind with the optional members that are absent
/// ("multisine_wave_in_result", the GEIS current amplitudes) set to the records' defaults; other
/// kinds unchanged.
boost::json::object withImpedanceDefaults(std::string_view type, const boost::json::object& parameters);

/// A number member as double (integers converted); the caller has checked the kind.
/// 0 when absent or not a number.
double numberOf(const boost::json::object& parameters, std::string_view key);

/// PARAMETER_VALUE_TOO_LOW / _TOO_HIGH when `value` lies outside [low, high], else success.
ErrorObject checkRange(std::string_view key, double value, double low, double high);

}  // namespace velmar::emulator
