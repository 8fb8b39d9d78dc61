#include "json_common/logging/error_object.hpp"

#include "json_common/logging/error_formatters.hpp"
#include "json_common/logging/error_messages.hpp"

#include <fmt/args.h>
#include <fmt/format.h>

namespace velmar {

namespace {
constexpr std::size_t kMaxParameters = 6;
}

ErrorObject::ErrorObject() : message(messages::NO_ERROR) {}

ErrorObject ErrorObject::withParameters(ErrorCodeEnum errorCode, std::string format,
                                        std::vector<ErrorParameter> parameters) {
    ErrorObject error(errorCode, format);
    error.message_parameters = std::move(parameters);
    return error;
}

std::string ErrorObject::getMessageFormatted() const {
    return ErrorFormatters::defaultFormatter().getFormatted(*this);
}

std::string format_with_dynamic_params(std::string_view format, const std::vector<ErrorParameter>& params) {
    if (params.size() > kMaxParameters) {
        return fmt::format(fmt::runtime(messages::TOO_MANY_PARAMETERS), params.size(), kMaxParameters, format);
    }
    if (params.empty()) return std::string(format);
    fmt::dynamic_format_arg_store<fmt::format_context> store;
    for (const auto& parameter : params) {
        std::visit([&store](const auto& value) { store.push_back(value); }, parameter);
    }
    try {
        return fmt::vformat(format, store);
    } catch (const fmt::format_error&) {
        // A format that does not match its parameters is shown as written rather than lost.
        return std::string(format);
    }
}

std::string errorParameterToString(const ErrorParameter& parameter) {
    return std::visit([](const auto& value) { return fmt::format("{}", value); }, parameter);
}

}  // namespace velmar
