#include "velmar_link_json/jobs/common/cancellation_signals.hpp"

#include <algorithm>

namespace velmar {

boost::asio::cancellation_slot CancellationSignals::freeSlot() {
    const auto free = std::find_if(signals_.begin(), signals_.end(),
                                   [](boost::asio::cancellation_signal& signal) { return !signal.slot().has_handler(); });
    if (free != signals_.end()) return free->slot();
    return signals_.emplace_back().slot();
}

boost::asio::cancellation_slot CancellationSignals::slot() {
    std::lock_guard lock(mutex_);
    return freeSlot();
}

boost::asio::cancellation_slot CancellationSignals::connect(Handler handler) {
    std::lock_guard lock(mutex_);
    auto slot = freeSlot();
    slot.assign(std::move(handler));
    return slot;
}

void CancellationSignals::release(boost::asio::cancellation_slot& slot) {
    std::lock_guard lock(mutex_);
    slot.clear();
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
