#include "json_common/logging/exception_text.hpp"

#include <boost/system/system_error.hpp>

#include <system_error>

namespace velmar {

std::string exceptionText(const std::exception& error) {
    if (const auto* system = dynamic_cast<const boost::system::system_error*>(&error)) return system->code().message();
    if (const auto* standard = dynamic_cast<const std::system_error*>(&error)) return standard->code().message();
    return error.what();
}

}  // namespace velmar
