#include "json_common/jobs/job_status.hpp"

#include "json_common/enum_names.hpp"

#include <stdexcept>

namespace velmar {

namespace {

template <class Enum>
std::string_view nameOrThrow(Enum value) {
    const auto name = enumName(value);
    if (name.empty()) throw std::logic_error("basic_string: construction from null is not valid");
    return name;
}

}  // namespace

std::string_view jobStatusName(JobStatusEnum status) { return nameOrThrow(status); }
std::string_view jobStatusDetailName(JobStatusDetailEnum detail) { return nameOrThrow(detail); }
std::optional<JobStatusEnum> jobStatusFromName(std::string_view name) { return enumFromName<JobStatusEnum>(name); }
std::optional<JobStatusDetailEnum> jobStatusDetailFromName(std::string_view name) {
    return enumFromName<JobStatusDetailEnum>(name);
}

}  // namespace velmar
