#pragma once

#include <boost/json/object.hpp>

namespace velmar {

/// The polymorphic base of parameter objects held in a JobInfo.
class MeasurementParameters {
public:
    virtual ~MeasurementParameters() = default;
    /// The parameters as the JSON object of a job request.
    virtual boost::json::object getParameterObject() const = 0;
};

}  // namespace velmar
