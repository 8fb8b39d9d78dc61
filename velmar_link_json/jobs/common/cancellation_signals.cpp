#include "velmar_link_json/jobs/common/cancellation_signals.hpp"

#include <algorithm>

namespace velmar {

boost::asio::cancellation_slot CancellationSignals::slot() {
    std::lock_guard lock(mutex_);
    const auto free = std::find_if(signals_.begin(), signals_.end(),
                                   [](boost::asio::cancellation_signal& signal) { return !signal.slot().has_handler(); });
    if (free != signals_.end()) return free->slot();
    return signals_.emplace_back().slot();
}

void CancellationSignals::emitSignal(boost::asio::cancellation_type type) {
    std::lock_guard lock(mutex_);
    for (auto& signal : signals_) {
        if (signal.slot().has_handler()) signal.emit(type);
    }
}

std::size_t CancellationSignals::size() const {
    std::lock_guard lock(mutex_);
    return signals_.size();
}

}  // namespace velmar
