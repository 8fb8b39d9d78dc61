#include "json_common/protocol/column_header.hpp"

#include "json_common/logging/error_messages.hpp"

#include <boost/json.hpp>

#include <array>
#include <string_view>

namespace velmar {

namespace json = boost::json;

namespace {

constexpr std::string_view MALFORMED = messages::JSON_MALFORMED;

void writeArray(json::object& out, std::string_view key, const std::vector<ColumnHeader>& columns,
                const std::string ColumnHeader::*member) {
    json::array array;
    array.reserve(columns.size());
    for (const auto& column : columns) array.emplace_back(column.*member);
    out[key] = std::move(array);
}

}  // namespace

void writeColumnHeaderArrays(json::object& out, const std::vector<ColumnHeader>& columns) {
    writeArray(out, "dimensions", columns, &ColumnHeader::dimension);
    writeArray(out, "units", columns, &ColumnHeader::unit);
    writeArray(out, "urns", columns, &ColumnHeader::urn);
}

json::object columnHeadersToJson(const std::vector<ColumnHeader>& columns) {
    json::object out;
    writeColumnHeaderArrays(out, columns);
    return out;
}

std::expected<std::vector<ColumnHeader>, ErrorObject> columnHeadersFromJson(const json::value& value) {
    const auto* object = value.if_object();
    if (object == nullptr) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, MALFORMED, "column headers: object expected"));
    }
    struct Member {
        std::string_view key;
        std::string ColumnHeader::*field;
    };
    constexpr std::array<Member, 3> members{{{"dimensions", &ColumnHeader::dimension},
                                             {"units", &ColumnHeader::unit},
                                             {"urns", &ColumnHeader::urn}}};
    std::array<const json::array*, 3> arrays{};
    for (std::size_t m = 0; m < members.size(); ++m) {
        const auto* found = object->if_contains(members[m].key);
        arrays[m] = found != nullptr ? found->if_array() : nullptr;
        if (arrays[m] == nullptr) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, MALFORMED,
                                               std::string("column headers: '") + std::string(members[m].key) +
                                                   "' missing or not an array"));
        }
    }
    const std::size_t count = arrays[0]->size();
    if (arrays[1]->size() != count || arrays[2]->size() != count) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, MALFORMED,
                                           "column headers: 'dimensions', 'units' and 'urns' differ in length"));
    }
    std::vector<ColumnHeader> columns(count);
    for (std::size_t m = 0; m < members.size(); ++m) {
        for (std::size_t i = 0; i < count; ++i) {
            const auto* text = (*arrays[m])[i].if_string();
            if (text == nullptr) {
                return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, MALFORMED,
                                                   std::string("column headers: '") + std::string(members[m].key) +
                                                       "' holds a value that is not a string"));
            }
            columns[i].*(members[m].field) = std::string(*text);
        }
    }
    return columns;
}

}  // namespace velmar
