#include "velmar_link_json/jobs/common/recorded_events.hpp"

#include <boost/json.hpp>

namespace velmar {

std::string_view recordedEventType(const boost::json::value& element) {
    boost::system::error_code ec;
    const auto* type = element.find_pointer("/event/type", ec);
    if (type == nullptr || !type->is_string()) return {};
    return type->get_string();
}

}  // namespace velmar
