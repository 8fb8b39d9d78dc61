#include "emulator/core/connection_registry.hpp"

#include <boost/json.hpp>

#include <algorithm>

namespace velmar::emulator {

boost::json::object connectionToJson(const ConnectionRecord& record) {
    return boost::json::object{
        {"connection_id", record.id},
        {"connected_since", record.connectedSince},
        {"remote_addr", record.meta.remoteAddr},
        {"remote_port", record.meta.remotePort},
        {"target", record.meta.target},
        {"user_agent", record.meta.userAgent},
        {"using_tls", record.meta.usingTls},
    };
}

namespace {
constexpr auto byId = [](const ConnectionRecord& r) -> std::string_view { return r.id; };
}

void ConnectionRegistry::add(ConnectionRecord record) {
    std::lock_guard lock(mutex_);
    records_.push_back(std::move(record));
}

void ConnectionRegistry::remove(std::string_view id) {
    std::lock_guard lock(mutex_);
    std::erase_if(records_, [&](const ConnectionRecord& r) { return r.id == id; });
}

std::optional<ConnectionRecord> ConnectionRegistry::find(std::string_view id) const {
    std::lock_guard lock(mutex_);
    auto it = std::ranges::find(records_, id, byId);
    if (it == records_.end()) return std::nullopt;
    return *it;
}

std::vector<ConnectionRecord> ConnectionRegistry::list() const {
    std::lock_guard lock(mutex_);
    return records_;
}

std::shared_ptr<ConnectionPeer> ConnectionRegistry::peer(std::string_view id) const {
    std::lock_guard lock(mutex_);
    auto it = std::ranges::find(records_, id, byId);
    return it == records_.end() ? nullptr : it->peer.lock();
}

std::size_t ConnectionRegistry::size() const {
    std::lock_guard lock(mutex_);
    return records_.size();
}

void IncomingBudget::Share::hold(std::size_t bytes) {
    budget_->held_ = budget_->held_ - held_ + bytes;
    held_ = bytes;
}

}  // namespace velmar::emulator
