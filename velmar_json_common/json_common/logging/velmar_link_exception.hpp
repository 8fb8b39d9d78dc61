#pragma once

#include "json_common/logging/error_object.hpp"

#include <exception>
#include <string>

namespace velmar {

/// Thrown by the raising facade; carries the ErrorObject and its message formatted at
/// construction.
class VelmarLinkException : public std::exception {
public:
    explicit VelmarLinkException(ErrorObject error);

    const char* what() const noexcept override { return formatted_.c_str(); }
    const ErrorObject& getError() const noexcept { return error_; }

private:
    ErrorObject error_;
    std::string formatted_;
};

}  // namespace velmar
