#pragma once

#include "json_common/job_parameters/measurement_parameters.hpp"
#include "velmar_link_json/jobs/measurement_job.hpp"

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace velmar {

/// A job kind: a parameter structure bound to a job name constant (JobNames::*).
/// Member definitions that convert to JSON live in measurement_job_template_impl.hpp and are
/// instantiated once per family (`template class` lines in the family's .cpp).
template <class ParameterStruct, const char* JobName>
class MeasurementJobTemplate : public MeasurementJob {
public:
    using Parameters = ParameterStruct;
    static constexpr std::string_view NAME{JobName};

    /// Wraps a parameter structure as a MeasurementParameters, so that it can be written to
    /// JSON and stored in a JobInfo.
    template <class S>
    class SerializableParameterStruct : public MeasurementParameters {
    public:
        explicit SerializableParameterStruct(S parameters) : parameters_(std::move(parameters)) {}
        boost::json::object getParameterObject() const override;
        const S& getParameters() const { return parameters_; }

    private:
        S parameters_;
    };

    explicit MeasurementJobTemplate(ParameterStruct parameters = {}, std::map<std::string, std::string> metaData = {},
                                    StopConditionList stopConditions = {}, JobOptions options = {})
        : MeasurementJob(std::move(metaData), std::move(stopConditions), options),
          parameters_(std::move(parameters)) {}

    std::string_view getName() const override { return JobName; }
    boost::json::object getParameterObject() const override;

    const ParameterStruct& getParameters() const { return parameters_; }
    void setParameters(ParameterStruct parameters) { parameters_ = std::move(parameters); }

private:
    ParameterStruct parameters_;
};

/// A job that returns one value of type Result in its completion message.
template <class Result, class ParameterStruct, const char* JobName>
class SingleValueMeasurementJobTemplate : public MeasurementJobTemplate<ParameterStruct, JobName> {
public:
    using ResultType = Result;
    using MeasurementJobTemplate<ParameterStruct, JobName>::MeasurementJobTemplate;

    /// The value of the last completion; default-constructed before and meaningless after a
    /// failed run.
    const Result& getJobResult() const { return result_; }
    void extractJobResult(const boost::json::object& message) override = 0;

protected:
    Result result_{};
};

}  // namespace velmar
