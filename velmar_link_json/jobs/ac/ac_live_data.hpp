#pragma once

// Live data of impedance jobs on the client: the four event kinds decoded into typed messages,
// and the machinery that an impedance job registers with the session for its run.

#include "json_common/logging/error_object.hpp"
#include "json_common/protocol/event_type.hpp"
#include "json_common/protocol/live_data_eis.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"

#include <boost/json/fwd.hpp>

#include <expected>
#include <functional>
#include <optional>
#include <variant>
#include <vector>

namespace velmar {

class AbstractMeasurementJob;
class LinkJsonSession;

/// The live-data header of an impedance job, with the job's information at the time it
/// arrived.
struct AcLiveDataHeaderMessage {
    LiveDataHeaderEis header;
    JobInfo jobInfo;
};

/// One frequency point, checked against the last header.
struct AcLiveDataRowMessage {
    LiveDataRowEis row;
};

/// A preview fragment of the waves being recorded, checked against the last header.
struct AcLiveDataWavesMessage {
    LiveDataWavesEis waves;
};

/// The end of the live data, with the final job information.
struct AcLiveDataFinishedMessage {
    JobInfo jobInfo;
};

/// What an impedance live-data handler receives: one of the four live-data events of the job.
using AcLiveDataMessage =
    std::variant<AcLiveDataHeaderMessage, AcLiveDataRowMessage, AcLiveDataWavesMessage, AcLiveDataFinishedMessage>;
using AcLiveDataHandlerFunction = std::function<void(const AcLiveDataMessage&)>;

// Decoders of the impedance live-data events (the "event" object). None throws. A missing
// or ill-typed envelope member is JSON_MALFORMED "json malformed: {0}"; a table that does not
// fit its declaration (or arrives before any header) is JSON_MALFORMED "the AC data table does
// not match the declared {0}".

/// "header" decoded as LiveDataHeaderEis.
std::expected<LiveDataHeaderEis, ErrorObject> decodeAcLiveDataHeader(const boost::json::object& event);
/// The row's six group lists (at the event's top level), checked against `header` (null: no
/// header yet, which is an error).
std::expected<LiveDataRowEis, ErrorObject> decodeAcLiveDataRow(const boost::json::object& event,
                                                              const LiveDataHeaderEis* header);
/// "paths_waves", "offset", "full_wave_size", checked against `header` (null: an error).
std::expected<LiveDataWavesEis, ErrorObject> decodeAcLiveDataWaves(const boost::json::object& event,
                                                                  const LiveDataHeaderEis* header);
/// "job_info" when present (it must be an object), otherwise `current`.
std::expected<JobInfo, ErrorObject> decodeAcJobInfo(const boost::json::object& event, const JobInfo& current);

/// The live-data machinery of impedance jobs: the caller's handlers and the decoder that the
/// session calls with the events of this job's run (routed by job id). Events are decoded and
/// handlers called on the session's I/O thread, in the order added; handlers are added on the
/// owner thread before the job starts. The owning job must outlive its run.
class AcMeasurementJobFeatures {
public:
    explicit AcMeasurementJobFeatures(const AbstractMeasurementJob& job,
                                      std::vector<AcLiveDataHandlerFunction> handlers = {});
    /// Copies the handlers for another job (the registration and the last header are not copied).
    AcMeasurementJobFeatures(const AbstractMeasurementJob& job, const AcMeasurementJobFeatures& other);

    void addLivedataEventHandler(AcLiveDataHandlerFunction&& handler);
    const std::vector<AcLiveDataHandlerFunction>& getLivedataEventHandlers() const { return handlers_; }

    /// Registers handleEvent as the decoder of the job's run with the session and forgets the
    /// header of an earlier run. Owner thread, before the job starts.
    void setEventHandlers(LinkJsonSession& session);
    void removeEventHandlers(LinkJsonSession& session);

    /// One event of the job: "LIVE_DATA_HEADER_EIS", "LIVE_DATA_ROW_EIS", "LIVE_DATA_WAVES" and
    /// "LIVE_DATA_FINISHED" are decoded and passed to every handler; other types are ignored.
    /// An event that cannot be read reaches no handler and gives the decoder's error, which
    /// fails the run. I/O thread.
    ErrorObject handleEvent(EventTypeEnum type, const boost::json::object& event);
    ErrorObject headerEventHandler(const boost::json::object& event);
    ErrorObject rowEisEventHandler(const boost::json::object& event);
    ErrorObject wavesEventHandler(const boost::json::object& event);
    ErrorObject finishedEventHandler(const boost::json::object& event);

    /// The last header of the current run; null before the first.
    const LiveDataHeaderEis* getLastHeader() const { return header_ ? &*header_ : nullptr; }

private:
    void dispatch(const AcLiveDataMessage& message) const;

    const AbstractMeasurementJob* job_;
    std::vector<AcLiveDataHandlerFunction> handlers_;
    std::optional<LiveDataHeaderEis> header_;
};

}  // namespace velmar
