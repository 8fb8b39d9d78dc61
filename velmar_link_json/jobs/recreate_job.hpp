#pragma once

// Rebuilding the job that produced a result from the result's job information. Included by the
// .cpp files of the job families only.

#include "velmar_link_json/jobs/abstract_measurement_job.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"

#include <memory>
#include <type_traits>

namespace velmar::detail {

/// A Job with the parameters, metadata (and, for kinds that take them, stop conditions) of
/// `info`; null when `info` is of another kind or holds no parameters of this kind.
template <class Job>
std::shared_ptr<AbstractMeasurementJob> recreateAs(const JobInfo& info) {
    using P = typename Job::Parameters;
    using Stored = typename Job::template SerializableParameterStruct<P>;
    if (info.type != Job::NAME) return nullptr;
    const auto* stored = dynamic_cast<const Stored*>(info.parameters.get());
    if (stored == nullptr) return nullptr;
    if constexpr (std::is_constructible_v<Job, P, decltype(info.job_meta), decltype(info.stop_conditions)>) {
        return std::make_shared<Job>(stored->getParameters(), info.job_meta, info.stop_conditions);
    } else {
        return std::make_shared<Job>(stored->getParameters(), info.job_meta);
    }
}

/// The first of Jobs whose kind matches `info`, rebuilt; null when none does.
template <class... Jobs>
std::shared_ptr<AbstractMeasurementJob> recreateAny(const JobInfo& info) {
    std::shared_ptr<AbstractMeasurementJob> job;
    ((job = job ? job : recreateAs<Jobs>(info)), ...);
    return job;
}

}  // namespace velmar::detail
