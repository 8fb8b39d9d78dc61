#include "emulator/core/request_params.hpp"

#include "emulator/core/emulator_messages.hpp"

#include <boost/json/value.hpp>

#include <cmath>

namespace velmar::emulator {

std::expected<std::string_view, ErrorObject> requireString(const boost::json::object& request, std::string_view key) {
    const auto* member = request.if_contains(key);
    if (member == nullptr) return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_MISSING, messages::PARAMETER_MISSING, key));
    const auto* text = member->if_string();
    if (text == nullptr) {
        return std::unexpected(
            ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID, key, "a string"));
    }
    return std::string_view(*text);
}

std::expected<const boost::json::object*, ErrorObject> requireObject(const boost::json::object& request,
                                                                     std::string_view key) {
    const auto* member = request.if_contains(key);
    if (member == nullptr) return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_MISSING, messages::PARAMETER_MISSING, key));
    const auto* object = member->if_object();
    if (object == nullptr) {
        return std::unexpected(
            ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID, key, "an object"));
    }
    return object;
}

std::expected<std::uint64_t, ErrorObject> optionalUnsigned(const boost::json::object& request, std::string_view key,
                                                           std::uint64_t fallback, std::uint64_t max) {
    const auto* member = request.if_contains(key);
    if (member == nullptr || member->is_null()) return fallback;
    std::uint64_t value = 0;
    if (const auto* u = member->if_uint64()) {
        value = *u;
    } else if (const auto* i = member->if_int64()) {
        if (*i < 0) {
            return std::unexpected(
                ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_LOW, messages::PARAMETER_VALUE_TOO_LOW, key, *i, 0));
        }
        value = static_cast<std::uint64_t>(*i);
    } else {
        return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID,
                                           key, "a non-negative integer"));
    }
    if (value > max) {
        return std::unexpected(
            ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_HIGH, messages::PARAMETER_VALUE_TOO_HIGH, key, value, max));
    }
    return value;
}

std::optional<std::string> findNonFiniteNumber(const boost::json::value& value, std::string_view prefix) {
    if (const auto* d = value.if_double()) {
        if (std::isfinite(*d)) return std::nullopt;
        return std::string(prefix);
    }
    if (const auto* object = value.if_object()) {
        for (const auto& [key, member] : *object) {
            if (!member.is_structured() && (!member.is_double() || std::isfinite(member.get_double()))) continue;
            auto path = std::string(prefix) + "/" + std::string(key);
            if (auto found = findNonFiniteNumber(member, path)) return found;
        }
    } else if (const auto* array = value.if_array()) {
        for (std::size_t i = 0; i < array->size(); ++i) {
            const auto& element = (*array)[i];
            if (!element.is_structured() && (!element.is_double() || std::isfinite(element.get_double())))
                continue;
            if (auto found = findNonFiniteNumber(element, std::string(prefix) + "/" + std::to_string(i))) return found;
        }
    }
    return std::nullopt;
}

ErrorObject notANumber(std::string_view path) {
    return ErrorObject(ErrorCodeEnum::PARAMETER_IS_NOT_A_NUMBER, messages::PARAMETER_IS_NOT_A_NUMBER, path);
}

}  // namespace velmar::emulator
