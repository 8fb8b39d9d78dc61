#include "json_common/jobs/job_status.hpp"

#include <array>
#include <stdexcept>

namespace velmar {

namespace {

constexpr std::array<std::string_view, 6> kStatusNames{"UNKNOWN", "PENDING", "RUNNING", "FINISHED", "FAILED", "DELETED"};
constexpr std::array<std::string_view, 10> kDetailNames{"NOT_FINISHED",     "RUN_TO_COMPLETION",
                                                        "NOT_CONNECTED",    "FAILED_TO_CREATE",
                                                        "CANCELLED_BEFORE_RUN", "STOPPED_BY_USER",
                                                        "FUNCTIONAL_LIMIT_OCCURRED", "SAFETY_LIMIT_OCCURRED",
                                                        "CONNECTION_LOSS",  "RUNTIME_ERROR"};

template <class Enum, std::size_t N>
std::string_view nameOf(const std::array<std::string_view, N>& names, Enum value) {
    const auto index = static_cast<std::size_t>(value);
    if (index >= N) throw std::logic_error("basic_string: construction from null is not valid");
    return names[index];
}

template <class Enum, std::size_t N>
std::optional<Enum> valueOf(const std::array<std::string_view, N>& names, std::string_view name) {
    for (std::size_t i = 0; i < N; ++i) {
        if (names[i] == name) return static_cast<Enum>(i);
    }
    return std::nullopt;
}

}  // namespace

std::string_view jobStatusName(JobStatusEnum status) { return nameOf(kStatusNames, status); }
std::string_view jobStatusDetailName(JobStatusDetailEnum detail) { return nameOf(kDetailNames, detail); }
std::optional<JobStatusEnum> jobStatusFromName(std::string_view name) {
    return valueOf<JobStatusEnum>(kStatusNames, name);
}
std::optional<JobStatusDetailEnum> jobStatusDetailFromName(std::string_view name) {
    return valueOf<JobStatusDetailEnum>(kDetailNames, name);
}

}  // namespace velmar
