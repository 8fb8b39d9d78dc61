#pragma once

#include <exception>
#include <string>

namespace velmar {

/// The text of an exception as it may be shown to a user: the message of an error code for
/// system errors (whose what() also names the library's source file, line and function), the
/// plain what() otherwise.
[[nodiscard]] std::string exceptionText(const std::exception& error);

}  // namespace velmar
