#include "json_common/protocol/live_data_header.hpp"

#include "json_common/base64.hpp"

#include "json_common/logging/error_messages.hpp"

#include <boost/json.hpp>

#include <bit>
#include <cstring>

namespace velmar {

namespace json = boost::json;

namespace {
constexpr std::string_view MALFORMED = messages::JSON_MALFORMED;
}

void tag_invoke(const json::value_from_tag&, json::value& jv, const LiveDataHeader& header) {
    json::object object;
    object.reserve(6);
    object["measurement_type_short"] = header.measurement_type_short;
    object["measurement_type"] = header.measurement_type;
    writeColumnHeaderArrays(object, header.columns);
    object["columns"] = columnHeadersToJson(header.columns);
    jv = std::move(object);
}

std::expected<LiveDataHeader, ErrorObject> liveDataHeaderFromJson(const json::value& value) {
    const auto* object = value.if_object();
    if (object == nullptr) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, MALFORMED, "live data header: object expected"));
    }
    LiveDataHeader header;
    for (auto [key, out] : {std::pair<std::string_view, std::string*>{"measurement_type", &header.measurement_type},
                            {"measurement_type_short", &header.measurement_type_short}}) {
        const auto* found = object->if_contains(key);
        const auto* text = found != nullptr ? found->if_string() : nullptr;
        if (text == nullptr) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, MALFORMED,
                                               "live data header: '" + std::string(key) + "' missing or not a string"));
        }
        *out = std::string(*text);
    }
    const auto* columns = object->if_contains("columns");
    if (columns == nullptr) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, MALFORMED, "live data header: 'columns' missing"));
    }
    auto parsed = columnHeadersFromJson(*columns);
    if (!parsed) return std::unexpected(std::move(parsed).error());
    header.columns = std::move(*parsed);
    return header;
}

LiveDataHeader tag_invoke(const json::value_to_tag<LiveDataHeader>&, const json::value& jv) {
    auto header = liveDataHeaderFromJson(jv);
    if (!header) {
        throw boost::system::system_error(make_error_code(json::error::not_object), header.error().getMessageFormatted());
    }
    return std::move(*header);
}

std::string encodeLiveDataRowsBase64(const double* values, std::size_t rowCount, std::size_t columnCount) {
    const std::size_t count = rowCount * columnCount;
    std::string bytes(count * sizeof(double), '\0');
    if constexpr (std::endian::native == std::endian::little) {
        if (count != 0) std::memcpy(bytes.data(), values, bytes.size());
    } else {
        for (std::size_t i = 0; i < count; ++i) {
            const auto swapped = std::byteswap(std::bit_cast<std::uint64_t>(values[i]));
            std::memcpy(bytes.data() + i * sizeof(double), &swapped, sizeof(double));
        }
    }
    return encodeBase64(bytes);
}

}  // namespace velmar
