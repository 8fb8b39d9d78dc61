#pragma once

#include "velmar_link_json/jobs/ac/ac_live_data.hpp"
#include "velmar_link_json/jobs/measurement_job_template.hpp"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace velmar {

/// Impedance measurements (and the calibration jobs that share their template): the job
/// template over its parameter structure and name, plus the impedance live-data machinery.
/// Impedance jobs take no stop conditions. The job must outlive its run; a copy carries the
/// handlers, not the registration with a session.
template <class ParameterStruct, const char* JobName>
class AcMeasurementJob : public MeasurementJobTemplate<ParameterStruct, JobName> {
    using Base = MeasurementJobTemplate<ParameterStruct, JobName>;
    using MetaData = std::map<std::string, std::string>;

public:
    using Handler = AcLiveDataHandlerFunction;

    explicit AcMeasurementJob(ParameterStruct parameters = {}, std::vector<Handler> handlers = {},
                              MetaData metaData = {}, JobOptions options = {})
        : Base(std::move(parameters), std::move(metaData), {}, options), features_(*this, std::move(handlers)) {}
    AcMeasurementJob(ParameterStruct parameters, Handler handler, MetaData metaData = {}, JobOptions options = {})
        : AcMeasurementJob(std::move(parameters), std::vector<Handler>{std::move(handler)}, std::move(metaData),
                           options) {}
    AcMeasurementJob(ParameterStruct parameters, MetaData metaData, JobOptions options = {})
        : AcMeasurementJob(std::move(parameters), std::vector<Handler>{}, std::move(metaData), options) {}

    AcMeasurementJob(const AcMeasurementJob& other) : Base(other), features_(*this, other.features_) {}
    AcMeasurementJob& operator=(const AcMeasurementJob& other) {
        Base::operator=(other);
        features_ = AcMeasurementJobFeatures(*this, other.features_);
        return *this;
    }

    /// 3: an impedance measurement.
    int getType() const override { return 3; }
    void setEventHandlers(LinkJsonSession& session) override { features_.setEventHandlers(session); }
    void removeEventHandlers(LinkJsonSession& session) override { features_.removeEventHandlers(session); }

    /// Appends a live-data handler; call it before the job starts.
    void addLivedataEventHandler(Handler&& handler) { features_.addLivedataEventHandler(std::move(handler)); }
    AcMeasurementJobFeatures& getFeatures() { return features_; }
    const AcMeasurementJobFeatures& getFeatures() const { return features_; }

private:
    AcMeasurementJobFeatures features_;
};

}  // namespace velmar
