#include "emulator/device_jobs/measurement_executor.hpp"

#include <algorithm>

namespace velmar::emulator {

std::chrono::milliseconds MeasurementExecutor::tickPeriod(double timeScale) const {
    const auto period = std::chrono::milliseconds(static_cast<long long>(250.0 / timeScale));
    return std::max(period, std::chrono::milliseconds(20));
}

void MeasurementExecutorRegistry::add(std::string type, ExecutorRegistration registration) {
    registrations_[std::move(type)] = std::move(registration);
}

const ExecutorRegistration* MeasurementExecutorRegistry::find(std::string_view type) const {
    const auto found = registrations_.find(type);
    return found == registrations_.end() ? nullptr : &found->second;
}

}  // namespace velmar::emulator
