#include "json_common/logging/velmar_link_exception.hpp"

#include "json_common/logging/error_formatters.hpp"

namespace velmar {

VelmarLinkException::VelmarLinkException(ErrorObject error)
    : error_(std::move(error)), formatted_(ErrorFormatters::defaultFormatter().getFormatted(error_)) {}

}  // namespace velmar
