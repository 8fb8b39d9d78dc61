#include "velmar_link_json/session_finite_numbers.hpp"

#include <boost/json.hpp>

#include <cmath>
#include <vector>

namespace velmar {

namespace {

/// Depth-first; `path` holds the keys and indices down to `value`.
bool containsNonFinite(const boost::json::value& value, std::vector<std::string>& path) {
    switch (value.kind()) {
    case boost::json::kind::double_: return !std::isfinite(value.get_double());
    case boost::json::kind::object:
        for (const auto& member : value.get_object()) {
            path.emplace_back(member.key());
            if (containsNonFinite(member.value(), path)) return true;
            path.pop_back();
        }
        return false;
    case boost::json::kind::array: {
        const auto& array = value.get_array();
        for (std::size_t i = 0; i < array.size(); ++i) {
            path.push_back(std::to_string(i));
            if (containsNonFinite(array[i], path)) return true;
            path.pop_back();
        }
        return false;
    }
    default: return false;
    }
}

std::string joined(const std::vector<std::string>& path) {
    std::string text;
    for (const auto& part : path) {
        if (!text.empty()) text += '/';
        text += part;
    }
    return text;
}

}  // namespace

std::optional<std::string> findNonFiniteNumber(const boost::json::object& object) {
    std::vector<std::string> path;
    for (const auto& member : object) {
        path.emplace_back(member.key());
        if (containsNonFinite(member.value(), path)) return joined(path);
        path.pop_back();
    }
    return std::nullopt;
}

std::optional<std::string> findNonFiniteNumber(const boost::json::value& value) {
    std::vector<std::string> path;
    if (containsNonFinite(value, path)) return joined(path);
    return std::nullopt;
}

}  // namespace velmar
