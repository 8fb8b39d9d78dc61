#pragma once

#include "json_common/logging/velmar_link_exception.hpp"
#include "velmar_link_json/link_operations.hpp"

#include <functional>
#include <mutex>
#include <set>
#include <tuple>
#include <type_traits>
#include <utility>

namespace velmar {

/// VelmarLink whose operations raise VelmarLinkException (carrying the ErrorObject) on every
/// failure and return their results plain. The operations are those of link_operations::LIST,
/// called through call<>() with the failure rule of their entry:
///
///     auto info = link.call<&VelmarLink::getWorkstationInfo>();      // WorkstationInfo
///     link.call<&VelmarLink::deleteResource>(resource);              // void
///
/// doJob and waitForJobToFinish return the ErrorObject instead of raising for the codes passed
/// to suppressDoJobException; getJobResultData also raises for a job that did not finish
/// successfully. Threads: as VelmarLink.
class VelmarLinkExc {
public:
    using OnFailure = link_operations::OnFailure;

    explicit VelmarLinkExc(std::string host, std::string port = "1994", unsigned flags = 0, std::string user = {},
                           std::string password = {});

    /// Calls `Function` (a member of VelmarLink, a free function taking the VelmarLink first,
    /// or a static function) and unwraps its result: the value of an expected, nothing for an
    /// ErrorObject, anything else as it is. Failures raise as `onFailure` says.
    template <auto Function, OnFailure onFailure = OnFailure::RAISE, class... Args>
    decltype(auto) call(Args&&... args);

    /// The identity of the link's workstation (see VelmarLink::id).
    WorkstationInfo id(std::chrono::milliseconds timeout);
    /// The identity of the workstation at host:port, over a short-lived connection.
    static WorkstationInfo id(const std::string& host, const std::string& port, std::chrono::milliseconds timeout);

    /// Codes for which doJob and waitForJobToFinish return instead of raising. Any thread.
    void suppressDoJobException(ErrorCodeEnum code);
    void enableDoJobException(ErrorCodeEnum code);
    [[nodiscard]] bool isDoJobExceptionSuppressed(ErrorCodeEnum code) const;

    VelmarLink& getLink() { return link_; }

    /// The value of `result`, or VelmarLinkException with its error.
    template <class T>
    static T unwrapOrThrow(std::expected<T, ErrorObject>&& result) {
        if (!result) throw VelmarLinkException(std::move(result).error());
        return std::move(*result);
    }
    static void unwrapOrThrow(ErrorObject&& error) {
        if (error) throw VelmarLinkException(std::move(error));
    }
    template <class T>
    static T unwrapOrThrow(T&& value) {
        return std::forward<T>(value);
    }

private:
    /// The error of a job, for the raising call, unless its code is suppressed.
    ErrorObject raiseUnlessSuppressed(ErrorObject error) const;
    /// Raises when the job has ended without success (or never ran, when `afterRun` is false).
    static void raiseIfJobFailed(const AbstractMeasurementJob& job, bool afterRun);

    template <auto Function, class... Args>
    decltype(auto) invoke(Args&&... args) {
        if constexpr (std::is_invocable_v<decltype(Function), VelmarLink&, Args&&...>) {
            return std::invoke(Function, link_, std::forward<Args>(args)...);
        } else {
            return std::invoke(Function, std::forward<Args>(args)...);
        }
    }

    VelmarLink link_;
    mutable std::mutex suppressedMutex_;
    std::set<ErrorCodeEnum> suppressed_;
};

template <auto Function, VelmarLinkExc::OnFailure onFailure, class... Args>
decltype(auto) VelmarLinkExc::call(Args&&... args) {
    using Result = decltype(invoke<Function>(std::forward<Args>(args)...));
    if constexpr (onFailure == OnFailure::RAISE_UNLESS_SUPPRESSED) {
        return raiseUnlessSuppressed(invoke<Function>(std::forward<Args>(args)...));
    } else if constexpr (onFailure == OnFailure::RAISE_IF_JOB_FAILED) {
        const AbstractMeasurementJob& job = std::get<0>(std::forward_as_tuple(args...));
        raiseIfJobFailed(job, false);
        auto result = invoke<Function>(std::forward<Args>(args)...);
        raiseIfJobFailed(job, true);
        return unwrapOrThrow(std::move(result));
    } else if constexpr (std::is_void_v<Result>) {
        invoke<Function>(std::forward<Args>(args)...);
    } else {
        return unwrapOrThrow(invoke<Function>(std::forward<Args>(args)...));
    }
}

}  // namespace velmar
