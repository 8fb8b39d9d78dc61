#pragma once

// Definitions of the JSON members of the job templates. Included only by the .cpp files that
// instantiate a job family.

#include "velmar_link_json/jobs/measurement_job_template.hpp"

#include <boost/json.hpp>

#include <type_traits>

namespace velmar::detail {

template <class S>
boost::json::object parameterObjectOf(const S& parameters) {
    if constexpr (std::is_same_v<S, AbstractMeasurementJob::Parameterless>) {
        return {};
    } else {
        // A structure whose JSON form is not an object is an error of the JSON library.
        return boost::json::value_from(parameters).as_object();
    }
}

/// The "result" of a completion message when it is an object, otherwise null.
inline const boost::json::value* findResultValue(const boost::json::object& message) {
    const auto* result = message.if_contains("result");
    return result != nullptr && result->is_object() ? result : nullptr;
}

inline const boost::json::object* findResultObject(const boost::json::object& message) {
    const auto* result = findResultValue(message);
    return result != nullptr ? &result->get_object() : nullptr;
}

}  // namespace velmar::detail

namespace velmar {

template <class ParameterStruct, const char* JobName>
template <class S>
boost::json::object MeasurementJobTemplate<ParameterStruct, JobName>::SerializableParameterStruct<
    S>::getParameterObject() const {
    return detail::parameterObjectOf(parameters_);
}

template <class ParameterStruct, const char* JobName>
boost::json::object MeasurementJobTemplate<ParameterStruct, JobName>::getParameterObject() const {
    return detail::parameterObjectOf(parameters_);
}

}  // namespace velmar
