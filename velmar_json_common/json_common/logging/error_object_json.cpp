#include "json_common/logging/error_object_json.hpp"

#include "json_common/logging/error_messages.hpp"

#include <boost/json.hpp>

#include <optional>

namespace velmar {

namespace json = boost::json;

namespace {

json::value parameterToJson(const ErrorParameter& parameter) {
    return std::visit([](const auto& value) { return json::value_from(value); }, parameter);
}

std::optional<std::uint64_t> readErrorNumber(const json::value& number) {
    if (const auto* u = number.if_uint64()) return *u;
    if (const auto* i = number.if_int64()) {
        if (*i < 0) return std::nullopt;
        return static_cast<std::uint64_t>(*i);
    }
    if (const auto* d = number.if_double()) {
        if (!(*d >= 0.0) || *d >= 18446744073709551616.0) return std::nullopt;
        const auto converted = static_cast<std::uint64_t>(*d);
        if (static_cast<double>(converted) != *d) return std::nullopt;
        return converted;
    }
    return std::nullopt;
}

ErrorObject unknownError() { return ErrorObject(ErrorCodeEnum::UNKNOWN_ERR, messages::UNKNOWN_ERROR); }

}  // namespace

void tag_invoke(const json::value_from_tag&, json::value& jv, const ErrorObject& error) {
    json::array parameters;
    parameters.reserve(error.message_parameters.size());
    for (const auto& parameter : error.message_parameters) parameters.push_back(parameterToJson(parameter));
    json::object object;
    object.reserve(4);
    object["number"] = static_cast<std::uint64_t>(error.code);
    object["code"] = errorCodeName(error.code);
    object["message"] = error.message;
    object["message_parameters"] = std::move(parameters);
    jv = std::move(object);
}

ErrorObject tag_invoke(const json::value_to_tag<ErrorObject>&, const json::value& jv) {
    const auto* object = jv.if_object();
    if (object == nullptr) return unknownError();

    const auto* number = object->if_contains("number");
    if (number == nullptr) return unknownError();
    const auto value = readErrorNumber(*number);
    if (!value) return unknownError();

    const auto* code = object->if_contains("code");
    if (code == nullptr || !code->is_string()) return unknownError();
    const auto named = errorCodeFromName(std::string_view(code->get_string()));
    if (static_cast<std::uint64_t>(named) != *value) return unknownError();

    const auto* message = object->if_contains("message");
    if (message == nullptr || !message->is_string()) return unknownError();

    std::vector<ErrorParameter> parameters;
    if (const auto* list = object->if_contains("message_parameters"); list != nullptr && list->is_array()) {
        for (const auto& element : list->get_array()) {
            if (const auto* b = element.if_bool()) {
                parameters.emplace_back(*b);
            } else if (const auto* s = element.if_string()) {
                parameters.emplace_back(std::string(*s));
            } else if (const auto* i = element.if_int64()) {
                parameters.emplace_back(*i);
            } else if (const auto* u = element.if_uint64()) {
                parameters.emplace_back(*u);
            } else if (const auto* d = element.if_double()) {
                parameters.emplace_back(*d);
            }
        }
    }
    return ErrorObject::withParameters(named, std::string(message->get_string()), std::move(parameters));
}

ErrorObject errorObjectFromJson(const json::value& jv) { return json::value_to<ErrorObject>(jv); }

json::value errorObjectToJson(const ErrorObject& error) { return json::value_from(error); }

}  // namespace velmar
