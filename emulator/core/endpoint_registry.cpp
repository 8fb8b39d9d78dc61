#include "emulator/core/endpoint_registry.hpp"

namespace velmar::emulator {

EndpointResult EndpointResult::success(boost::json::object result) {
    EndpointResult out;
    out.result = std::move(result);
    return out;
}

EndpointResult EndpointResult::failure(ErrorObject error) {
    EndpointResult out;
    out.error = std::move(error);
    return out;
}

void EndpointRegistry::add(std::string path, EndpointHandler handler, NumberCheckEnum numbers) {
    handlers_.insert_or_assign(std::move(path), Entry{std::move(handler), numbers});
}

const EndpointHandler* EndpointRegistry::find(std::string_view path) const {
    auto it = handlers_.find(path);
    return it == handlers_.end() ? nullptr : &it->second.handler;
}

bool EndpointRegistry::checksOwnNumbers(std::string_view path) const {
    auto it = handlers_.find(path);
    return it != handlers_.end() && it->second.numbers == NumberCheckEnum::BY_HANDLER;
}

std::vector<std::string> EndpointRegistry::paths() const {
    std::vector<std::string> out;
    out.reserve(handlers_.size());
    for (const auto& [path, handler] : handlers_) out.push_back(path);
    return out;
}

}  // namespace velmar::emulator
