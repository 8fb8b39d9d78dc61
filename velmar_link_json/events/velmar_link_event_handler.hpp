#pragma once

#include "json_common/jobs/job_status.hpp"
#include "json_common/protocol/event_type.hpp"

#include <boost/json/fwd.hpp>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velmar {

struct JobInfo;
struct LiveDataHeader;
struct LiveDataHeaderEis;
struct LiveDataRowEis;
struct LiveDataWavesEis;

/// Delivers workstation events of one type to application code. The raw callback receives the
/// event object; the factories build it from a callback with decoded arguments. A raw callback
/// made by a factory never lets a malformed event escape: it writes one line to the standard
/// error stream and drops the event. Callbacks run on the session's I/O thread, one event at a
/// time, and must not block on a request of the same connection.
class VelmarLinkEventHandler {
public:
    using RawCallback = std::function<void(const boost::json::object&)>;

    VelmarLinkEventHandler(EventTypeEnum type, std::shared_ptr<RawCallback>&& callback);

    /// The event type for which the handler was made.
    EventTypeEnum getType() const { return type_; }
    const std::shared_ptr<RawCallback>& getRawCallback() const { return callback_; }

    /// "new_status" and "job_info".
    static std::shared_ptr<VelmarLinkEventHandler> makeJobStatusUpdateEventHandler(
        std::function<void(JobStatusEnum, const JobInfo&)> callback);
    /// "job_id", "severity", "date_time", "message".
    static std::shared_ptr<VelmarLinkEventHandler> makeJobLogMessageEventHandler(
        std::function<void(const std::string&, LogSeverityEnum, const std::string&, const std::string&)> callback);
    /// "severity", "date_time", "message".
    static std::shared_ptr<VelmarLinkEventHandler> makeLogMessageEventHandler(
        std::function<void(LogSeverityEnum, const std::string&, const std::string&)> callback);
    /// "job_info".
    static std::shared_ptr<VelmarLinkEventHandler> makeJobDoneEventHandler(
        std::function<void(const JobInfo&)> callback);
    /// "header" and "job_info".
    static std::shared_ptr<VelmarLinkEventHandler> makeLiveDataHeaderEventHandler(
        std::function<void(const LiveDataHeader&, const JobInfo&)> callback);
    /// "header" and "job_info".
    static std::shared_ptr<VelmarLinkEventHandler> makeLiveDataHeaderEisEventHandler(
        std::function<void(const LiveDataHeaderEis&, const JobInfo&)> callback);
    /// "data": rows of numbers.
    static std::shared_ptr<VelmarLinkEventHandler> makeLiveDataRowsEventHandler(
        std::function<void(const std::vector<std::vector<double>>&)> callback);
    /// The event object as a row.
    static std::shared_ptr<VelmarLinkEventHandler> makeLiveDataRowEisEventHandler(
        std::function<void(const LiveDataRowEis&)> callback);
    /// The event object as a wave fragment.
    static std::shared_ptr<VelmarLinkEventHandler> makeLiveDataWaveEventHandler(
        std::function<void(const LiveDataWavesEis&)> callback);
    /// "job_info".
    static std::shared_ptr<VelmarLinkEventHandler> makeLiveDataFinishedEventHandler(
        std::function<void(const JobInfo&)> callback);

private:
    EventTypeEnum type_;
    std::shared_ptr<RawCallback> callback_;
};

/// The wire name of an event type ("JOB_STATUS_UPDATE", ...).
std::string_view eventTypeName(EventTypeEnum type);
/// Exact names "DEBUG", "MESSAGE", "WARNING", "CRITICAL_ERROR"; throws std::invalid_argument
/// for any other text.
LogSeverityEnum logSeverityFromName(std::string_view name);

}  // namespace velmar
