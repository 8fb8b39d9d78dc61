#include "velmar_link_json/events/velmar_link_event_handler.hpp"

#include "json_common/detail/described_json.hpp"
#include "json_common/enum_names.hpp"
#include "json_common/logging/exception_text.hpp"
#include "json_common/protocol/live_data_eis.hpp"
#include "json_common/protocol/live_data_header.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"

#include <boost/json.hpp>

#include <iostream>
#include <stdexcept>
#include <tuple>

namespace velmar {

namespace json = boost::json;

namespace {

std::string text(const json::object& event, std::string_view key) { return std::string(event.at(key).as_string()); }

/// The event's "job_info"; an event without one (or with one of another kind) gives the default
/// information with the event's own "job_id", as missing keys of a job information do.
JobInfo jobInfoMember(const json::object& event) {
    if (const auto* info = event.if_contains("job_info"); info != nullptr && info->is_object()) {
        return jobInfoFromJson(info->get_object());
    }
    JobInfo info;
    if (const auto* jobId = event.if_contains("job_id"); jobId != nullptr && jobId->is_string()) {
        info.job_id = std::string(jobId->get_string());
    }
    return info;
}

/// Builds the raw callback of `type`: `decode` turns the event into the typed arguments (a
/// tuple); a decoding failure is reported and the event dropped, so the typed callback only
/// ever sees well-formed events.
template <class Decode, class Callback>
std::shared_ptr<VelmarLinkEventHandler> makeHandler(EventTypeEnum type, Decode decode, Callback callback) {
    auto raw = std::make_shared<VelmarLinkEventHandler::RawCallback>(
        [type, decode = std::move(decode), callback = std::move(callback)](const json::object& event) {
            std::optional<decltype(decode(event))> arguments;
            try {
                arguments.emplace(decode(event));
            } catch (const std::exception& error) {
                std::cerr << "velmar_link events: malformed " << eventTypeName(type) << " event dropped: " << exceptionText(error)
                          << '\n';
                return;
            }
            if (!callback) return;
            try {
                std::apply(callback, *arguments);
            } catch (const std::exception& error) {
                std::cerr << "velmar_link events: " << eventTypeName(type) << " callback failed: " << exceptionText(error)
                          << '\n';
            }
        });
    return std::make_shared<VelmarLinkEventHandler>(type, std::move(raw));
}

}  // namespace

std::string_view eventTypeName(EventTypeEnum type) {
    const auto name = enumName(type);
    return name.empty() ? enumName(EventTypeEnum::UNKNOWN) : name;
}

LogSeverityEnum logSeverityFromName(std::string_view name) {
    if (const auto severity = enumFromName<LogSeverityEnum>(name)) return *severity;
    throw std::invalid_argument("unknown severity '" + std::string(name) + "'");
}

VelmarLinkEventHandler::VelmarLinkEventHandler(EventTypeEnum type, std::shared_ptr<RawCallback>&& callback)
    : type_(type), callback_(std::move(callback)) {}

std::shared_ptr<VelmarLinkEventHandler> VelmarLinkEventHandler::makeJobStatusUpdateEventHandler(
    std::function<void(JobStatusEnum, const JobInfo&)> callback) {
    return makeHandler(
        EventTypeEnum::JOB_STATUS_UPDATE,
        [](const json::object& event) {
            const auto name = std::string_view(event.at("new_status").as_string());
            const auto status = jobStatusFromName(name);
            if (!status) throw std::invalid_argument("unknown job status '" + std::string(name) + "'");
            return std::tuple{*status, jobInfoMember(event)};
        },
        std::move(callback));
}

std::shared_ptr<VelmarLinkEventHandler> VelmarLinkEventHandler::makeJobLogMessageEventHandler(
    std::function<void(const std::string&, LogSeverityEnum, const std::string&, const std::string&)> callback) {
    return makeHandler(
        EventTypeEnum::MESSAGE_FROM_JOB,
        [](const json::object& event) {
            return std::tuple{text(event, "job_id"), logSeverityFromName(event.at("severity").as_string()),
                              text(event, "date_time"), text(event, "message")};
        },
        std::move(callback));
}

std::shared_ptr<VelmarLinkEventHandler> VelmarLinkEventHandler::makeLogMessageEventHandler(
    std::function<void(LogSeverityEnum, const std::string&, const std::string&)> callback) {
    return makeHandler(
        EventTypeEnum::MESSAGE_FROM_SERVER,
        [](const json::object& event) {
            return std::tuple{logSeverityFromName(event.at("severity").as_string()), text(event, "date_time"),
                              text(event, "message")};
        },
        std::move(callback));
}

std::shared_ptr<VelmarLinkEventHandler> VelmarLinkEventHandler::makeJobDoneEventHandler(
    std::function<void(const JobInfo&)> callback) {
    return makeHandler(
        EventTypeEnum::JOB_DONE, [](const json::object& event) { return std::tuple{jobInfoMember(event)}; },
        std::move(callback));
}

std::shared_ptr<VelmarLinkEventHandler> VelmarLinkEventHandler::makeLiveDataHeaderEventHandler(
    std::function<void(const LiveDataHeader&, const JobInfo&)> callback) {
    return makeHandler(
        EventTypeEnum::LIVE_DATA_HEADER,
        [](const json::object& event) {
            return std::tuple{json::value_to<LiveDataHeader>(event.at("header")), jobInfoMember(event)};
        },
        std::move(callback));
}

std::shared_ptr<VelmarLinkEventHandler> VelmarLinkEventHandler::makeLiveDataHeaderEisEventHandler(
    std::function<void(const LiveDataHeaderEis&, const JobInfo&)> callback) {
    return makeHandler(
        EventTypeEnum::LIVE_DATA_HEADER_EIS,
        [](const json::object& event) {
            return std::tuple{json::value_to<LiveDataHeaderEis>(event.at("header")), jobInfoMember(event)};
        },
        std::move(callback));
}

std::shared_ptr<VelmarLinkEventHandler> VelmarLinkEventHandler::makeLiveDataRowsEventHandler(
    std::function<void(const std::vector<std::vector<double>>&)> callback) {
    return makeHandler(
        EventTypeEnum::LIVE_DATA_ROWS,
        [](const json::object& event) {
            return std::tuple{detail::memberFromJson<std::vector<std::vector<double>>>(event.at("data"))};
        },
        std::move(callback));
}

std::shared_ptr<VelmarLinkEventHandler> VelmarLinkEventHandler::makeLiveDataRowEisEventHandler(
    std::function<void(const LiveDataRowEis&)> callback) {
    return makeHandler(
        EventTypeEnum::LIVE_DATA_ROW_EIS,
        [](const json::object& event) { return std::tuple{json::value_to<LiveDataRowEis>(json::value(event))}; },
        std::move(callback));
}

std::shared_ptr<VelmarLinkEventHandler> VelmarLinkEventHandler::makeLiveDataWaveEventHandler(
    std::function<void(const LiveDataWavesEis&)> callback) {
    return makeHandler(
        EventTypeEnum::LIVE_DATA_WAVES,
        [](const json::object& event) { return std::tuple{json::value_to<LiveDataWavesEis>(json::value(event))}; },
        std::move(callback));
}

std::shared_ptr<VelmarLinkEventHandler> VelmarLinkEventHandler::makeLiveDataFinishedEventHandler(
    std::function<void(const JobInfo&)> callback) {
    return makeHandler(
        EventTypeEnum::LIVE_DATA_FINISHED, [](const json::object& event) { return std::tuple{jobInfoMember(event)}; },
        std::move(callback));
}

}  // namespace velmar
