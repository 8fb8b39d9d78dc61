#pragma once

#include "velmar_link_json/jobs/dc/dc_live_data.hpp"
#include "velmar_link_json/jobs/dc_measurement_job_fwd.hpp"
#include "velmar_link_json/jobs/measurement_job_template.hpp"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace velmar {

/// A DC measurement kind: the job template over its parameter structure and name, plus the
/// live-data machinery. The job must outlive its run; a copy carries the handlers, not the
/// registration with a session.
template <class ParameterStruct, const char* JobName>
class DcMeasurementJob : public MeasurementJobTemplate<ParameterStruct, JobName> {
    using Base = MeasurementJobTemplate<ParameterStruct, JobName>;
    using MetaData = std::map<std::string, std::string>;

public:
    using Handler = DcLiveDataHandlerFunction;

    explicit DcMeasurementJob(ParameterStruct parameters = {}, std::vector<Handler> handlers = {},
                              MetaData metaData = {}, StopConditionList stopConditions = {}, JobOptions options = {})
        : Base(std::move(parameters), std::move(metaData), std::move(stopConditions), options),
          features_(*this, std::move(handlers)) {}
    DcMeasurementJob(ParameterStruct parameters, Handler handler, MetaData metaData = {},
                     StopConditionList stopConditions = {}, JobOptions options = {})
        : DcMeasurementJob(std::move(parameters), std::vector<Handler>{std::move(handler)}, std::move(metaData),
                           std::move(stopConditions), options) {}
    DcMeasurementJob(ParameterStruct parameters, MetaData metaData, StopConditionList stopConditions = {},
                     JobOptions options = {})
        : DcMeasurementJob(std::move(parameters), std::vector<Handler>{}, std::move(metaData),
                           std::move(stopConditions), options) {}
    DcMeasurementJob(ParameterStruct parameters, StopConditionList stopConditions, JobOptions options = {})
        : DcMeasurementJob(std::move(parameters), std::vector<Handler>{}, MetaData{}, std::move(stopConditions),
                           options) {}
    DcMeasurementJob(ParameterStruct parameters, std::vector<Handler> handlers, StopConditionList stopConditions,
                     JobOptions options = {})
        : DcMeasurementJob(std::move(parameters), std::move(handlers), MetaData{}, std::move(stopConditions),
                           options) {}
    DcMeasurementJob(ParameterStruct parameters, Handler handler, StopConditionList stopConditions,
                     JobOptions options = {})
        : DcMeasurementJob(std::move(parameters), std::vector<Handler>{std::move(handler)}, MetaData{},
                           std::move(stopConditions), options) {}

    DcMeasurementJob(const DcMeasurementJob& other) : Base(other), features_(*this, other.features_) {}
    DcMeasurementJob& operator=(const DcMeasurementJob& other) {
        Base::operator=(other);
        features_ = DcMeasurementJobFeatures(*this, other.features_);
        return *this;
    }

    /// 1: a DC measurement.
    int getType() const override { return 1; }
    void setEventHandlers(LinkJsonSession& session) override { features_.setEventHandlers(session); }
    void removeEventHandlers(LinkJsonSession& session) override { features_.removeEventHandlers(session); }

    /// Appends a live-data handler; call it before the job starts.
    void addLivedataEventHandler(Handler&& handler) { features_.addLivedataEventHandler(std::move(handler)); }
    DcMeasurementJobFeatures& getFeatures() { return features_; }

private:
    DcMeasurementJobFeatures features_;
};

}  // namespace velmar
