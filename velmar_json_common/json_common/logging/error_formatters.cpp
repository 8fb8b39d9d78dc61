#include "json_common/logging/error_formatters.hpp"

#include "json_common/logging/error_object.hpp"

namespace velmar::ErrorFormatters {

std::string DefaultErrorFormatter::getFormatted(const ErrorObject& error) const {
    return format_with_dynamic_params(error.message, error.message_parameters);
}

const DefaultErrorFormatter& defaultFormatter() {
    static const DefaultErrorFormatter instance;
    return instance;
}

}  // namespace velmar::ErrorFormatters
