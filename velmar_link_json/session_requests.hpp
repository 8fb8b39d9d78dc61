#pragma once

// Private to velmar_link_json: the request table. Each request operation of the session is one
// row (endpoint, reply key, result type) sent through the one generic typed request below;
// adding an operation is adding a row and the member that names it.

#include "json_common/configuration/workstation_info.hpp"
#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/exception_text.hpp"
#include "json_common/resources/resource.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/link_json_session.hpp"

#include <boost/json.hpp>

#include <expected>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace velmar::requests {

/// A row with a fixed endpoint. Result void: success carries nothing.
template <class R>
struct Operation {
    using Result = R;
    std::string_view endpoint;
    std::string_view replyKey;
};

/// A row bound to an endpoint built at run time.
template <class R>
struct BoundOperation {
    using Result = R;
    std::string endpoint;
    std::string_view replyKey;
};

/// "/" + the resource type's name + "/" + operation ("/WAVE/create").
inline std::string resourcePath(ResourceTypeEnum type, std::string_view operation) {
    std::string path = "/";
    path += resourceTypeName(type);
    path += "/";
    path += operation;
    return path;
}

/// A row whose endpoint is a path of a resource type.
template <class R>
struct ResourceOperation {
    using Result = R;
    std::string_view suffix;
    std::string_view replyKey;
    [[nodiscard]] BoundOperation<R> at(ResourceTypeEnum type) const { return {resourcePath(type, suffix), replyKey}; }
};

// ---- the table ----
inline constexpr Operation<WorkstationInfo> WORKSTATION_INFO{"/id", "workstation"};
inline constexpr Operation<WorkstationStatus> WORKSTATION_STATUS{"/status", "workstation_status"};
inline constexpr Operation<std::vector<WebsocketConnectionInfo>> CONNECTION_LIST{"/connection/list", "connections"};
inline constexpr Operation<WebsocketConnectionInfo> OWN_CONNECTION{"/connection/id", "connection"};
inline constexpr Operation<void> DROP_CONNECTION{"/connection/drop", {}};
inline constexpr Operation<std::vector<JobInfo>> JOB_LIST{"/job/list", "jobs"};
inline constexpr Operation<JobInfo> JOB_INFO{"/job/info", "job_info"};
inline constexpr ResourceOperation<Resource> RESOURCE_CREATE{"create", "resource"};
inline constexpr ResourceOperation<void> RESOURCE_APPEND{"append", {}};
inline constexpr ResourceOperation<void> RESOURCE_DELETE{"delete", {}};
inline constexpr ResourceOperation<std::vector<Resource>> RESOURCE_LIST{"list", "resources"};
inline constexpr ResourceOperation<Resource> RESOURCE_INFO{"info", "resource"};

inline ErrorObject incomplete() { return ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_INCOMPLETE); }

/// Reads a reply value of type T: a record from an object (its JSON conversion), a list from
/// an array. A conversion failure is JSON_MALFORMED "json malformed: {0}", never an exception.
template <class T>
struct ReplyValue {
    static std::expected<T, ErrorObject> read(const boost::json::value& value) {
        if (!value.is_object()) return std::unexpected(incomplete());
        try {
            return boost::json::value_to<T>(value);
        } catch (const std::exception& error) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_MALFORMED, exceptionText(error)));
        }
    }
};

template <>
struct ReplyValue<JobInfo> {
    static std::expected<JobInfo, ErrorObject> read(const boost::json::value& value) {
        if (!value.is_object()) return std::unexpected(incomplete());
        try {
            return jobInfoFromJson(value.get_object());
        } catch (const std::exception& error) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_MALFORMED, exceptionText(error)));
        }
    }
};

template <class T>
struct ReplyValue<std::vector<T>> {
    static std::expected<std::vector<T>, ErrorObject> read(const boost::json::value& value) {
        const auto* array = value.if_array();
        if (array == nullptr) return std::unexpected(incomplete());
        std::vector<T> result;
        result.reserve(array->size());
        for (const auto& element : *array) {
            auto converted = ReplyValue<T>::read(element);
            if (!converted) return std::unexpected(std::move(converted).error());
            result.push_back(std::move(*converted));
        }
        return result;
    }
};

/// The generic typed request: {"do": endpoint, keys...}, the blocking send, then the reply key
/// converted to the row's result type.
template <class Op>
std::expected<typename Op::Result, ErrorObject> call(LinkJsonSession& session, const Op& op,
                                                     boost::json::object keys = {}, int timeoutMs = 0) {
    using Result = typename Op::Result;
    boost::json::object request;
    request.reserve(keys.size() + 2);
    request["do"] = op.endpoint;
    for (auto& member : keys) request[member.key()] = std::move(member.value());
    const auto reply = session.sendRequest(std::move(request), timeoutMs);
    if (!LinkJsonSession::wasSuccessful(reply)) return std::unexpected(LinkJsonSession::getError(reply));
    if constexpr (std::is_void_v<Result>) {
        return {};
    } else {
        const auto* value = reply.if_contains(op.replyKey);
        if (value == nullptr) return std::unexpected(incomplete());
        return ReplyValue<Result>::read(*value);
    }
}

/// The ErrorObject form of an operation without result.
inline ErrorObject status(const std::expected<void, ErrorObject>& outcome) {
    return outcome ? ErrorObject{} : outcome.error();
}

}  // namespace velmar::requests
