#pragma once

#include "json_common/logging/error_code_enum.hpp"

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace velmar {

/// One value that fills a placeholder of an error message.
using ErrorParameter = std::variant<bool, double, std::int64_t, std::uint64_t, std::string>;

namespace detail {

template <class T>
ErrorParameter toErrorParameter(T&& value) {
    using D = std::remove_cvref_t<T>;
    if constexpr (std::is_same_v<D, bool>) {
        return ErrorParameter{std::in_place_type<bool>, value};
    } else if constexpr (std::is_convertible_v<T, std::string_view>) {
        return ErrorParameter{std::in_place_type<std::string>, std::string_view(value)};
    } else if constexpr (std::is_floating_point_v<D>) {
        return ErrorParameter{std::in_place_type<double>, static_cast<double>(value)};
    } else if constexpr (std::is_integral_v<D> && std::is_signed_v<D>) {
        return ErrorParameter{std::in_place_type<std::int64_t>, static_cast<std::int64_t>(value)};
    } else if constexpr (std::is_integral_v<D> && std::is_unsigned_v<D>) {
        return ErrorParameter{std::in_place_type<std::uint64_t>, static_cast<std::uint64_t>(value)};
    } else {
        // Other string-like types (for example the JSON library's string view) convert
        // to std::string_view explicitly.
        return ErrorParameter{std::in_place_type<std::string>, std::string_view(value)};
    }
}

}  // namespace detail

/// The failure value of the whole library: a code, a message format with "{0}"-style
/// placeholders and the values that fill them. False exactly when the code is NONE.
/// Formatting is lazy: see ErrorFormatters.
struct ErrorObject {
    ErrorCodeEnum code = ErrorCodeEnum::NONE;
    std::string message;
    std::vector<ErrorParameter> message_parameters;

    /// The success value: NONE, "no error occoured", no parameters.
    ErrorObject();

    /// An error with a format and one parameter per further argument, in order.
    template <class... Args>
    ErrorObject(ErrorCodeEnum errorCode, std::string_view format, Args&&... args)
        : code(errorCode), message(format) {
        message_parameters.reserve(sizeof...(Args));
        (message_parameters.push_back(detail::toErrorParameter(std::forward<Args>(args))), ...);
    }

    /// An error from already built parameters.
    static ErrorObject withParameters(ErrorCodeEnum errorCode, std::string format,
                                      std::vector<ErrorParameter> parameters);

    ErrorCodeEnum getErrorCodeEnum() const { return code; }
    const std::string& getMessageFormatString() const { return message; }
    const std::vector<ErrorParameter>& getMessageParameters() const { return message_parameters; }

    /// The message with its placeholders filled.
    std::string getMessageFormatted() const;

    /// True for a failure (code other than NONE).
    explicit operator bool() const { return code != ErrorCodeEnum::NONE; }
    bool isNone() const { return code == ErrorCodeEnum::NONE; }

    friend bool operator==(const ErrorObject&, const ErrorObject&) = default;
};

/// Formats a message: more than 6 parameters give the too-many-parameters text, no
/// parameters return the format unchanged, otherwise {fmt} fills the placeholders.
std::string format_with_dynamic_params(std::string_view format, const std::vector<ErrorParameter>& params);

/// The text of one parameter as the formatter writes it.
std::string errorParameterToString(const ErrorParameter& parameter);

}  // namespace velmar
