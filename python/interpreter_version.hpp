#pragma once

#include <string_view>

namespace velmar::python {

/// True when the interpreter's version string belongs to the line the module was built
/// for: it begins with `builtFor` ("3.12") and the next character is not a digit, so
/// "3.12.7 (main, ...)" matches while "3.13.0" and "3.120" do not.
constexpr bool interpreterVersionMatches(std::string_view builtFor, std::string_view running) {
    if (!running.starts_with(builtFor)) return false;
    if (running.size() == builtFor.size()) return true;
    const char next = running[builtFor.size()];
    return next < '0' || next > '9';
}

}  // namespace velmar::python
