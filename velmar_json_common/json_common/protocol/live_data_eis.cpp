#include "json_common/protocol/live_data_eis.hpp"

#include "json_common/detail/described_json.hpp"

#include <boost/json.hpp>

#include <stdexcept>
#include <string>

namespace velmar {

namespace json = boost::json;

namespace {

constexpr std::string_view kMismatch = "the AC data table does not match the declared ";

[[noreturn]] void mismatch(std::string_view what) { throw std::invalid_argument(std::string(kMismatch) + std::string(what)); }

const json::object& objectOf(const json::value& jv, std::string_view layout) {
    const auto* object = jv.if_object();
    if (object == nullptr) mismatch(std::string(layout) + ": not an object");
    return *object;
}

const json::array& arrayMember(const json::object& object, std::string_view key, std::string_view layout) {
    const auto* value = object.if_contains(key);
    if (value == nullptr || !value->is_array()) {
        mismatch(std::string(layout) + ": '" + std::string(key) + "' missing or not an array");
    }
    return value->get_array();
}

NumberLists numberLists(const json::object& object, std::string_view key, std::string_view layout) {
    const auto& array = arrayMember(object, key, layout);
    NumberLists lists;
    lists.reserve(array.size());
    for (const auto& element : array) {
        const auto* list = element.if_array();
        if (list == nullptr) mismatch(std::string(layout) + ": '" + std::string(key) + "' holds a non-list");
        auto& out = lists.emplace_back();
        out.reserve(list->size());
        for (const auto& number : *list) {
            if (!number.is_number()) mismatch(std::string(layout) + ": '" + std::string(key) + "' holds a non-number");
            out.push_back(number.to_number<double>());
        }
    }
    return lists;
}

std::uint64_t unsignedMember(const json::object& object, std::string_view key) {
    const auto* value = object.if_contains(key);
    if (value == nullptr) return 0;
    return value->to_number<std::uint64_t>();
}

json::array listsToJson(const NumberLists& lists) { return detail::memberToJson(lists).as_array(); }

}  // namespace

LiveDataHeaderEis tag_invoke(const json::value_to_tag<LiveDataHeaderEis>&, const json::value& jv) {
    constexpr std::string_view layout = "header";
    const auto& object = objectOf(jv, layout);
    LiveDataHeaderEis header;
    header.measurement_type = LiveDataHeaderEis::MEASUREMENT_TYPE;
    header.measurement_type_short = LiveDataHeaderEis::MEASUREMENT_TYPE_SHORT;
    if (const auto* text = object.if_contains("measurement_type"); text != nullptr && text->is_string()) {
        header.measurement_type = text->get_string();
    }
    if (const auto* text = object.if_contains("measurement_type_short"); text != nullptr && text->is_string()) {
        header.measurement_type_short = text->get_string();
    }
    header.impedances = arrayMember(object, "impedances", layout);
    header.paths = arrayMember(object, "paths", layout);
    header.async_paths = arrayMember(object, "async_paths", layout);
    header.potentiostats = arrayMember(object, "potentiostats", layout);
    header.meta = arrayMember(object, "meta", layout);
    if (const auto* columns = object.if_contains("columns")) {
        if (auto decoded = columnHeadersFromJson(*columns)) header.columns = std::move(*decoded);
    }
    return header;
}

void tag_invoke(const json::value_from_tag&, json::value& jv, const LiveDataHeaderEis& header) {
    json::object object;
    object["measurement_type"] = LiveDataHeaderEis::MEASUREMENT_TYPE;
    object["measurement_type_short"] = LiveDataHeaderEis::MEASUREMENT_TYPE_SHORT;
    json::array dimensions;
    json::array units;
    for (const auto& column : header.columns) {
        dimensions.push_back(json::string(column.dimension));
        units.push_back(json::string(column.unit));
    }
    object["dimensions"] = std::move(dimensions);
    object["units"] = std::move(units);
    object["impedances"] = header.impedances;
    object["paths"] = header.paths;
    object["async_paths"] = header.async_paths;
    object["potentiostats"] = header.potentiostats;
    object["meta"] = header.meta;
    jv = std::move(object);
}

LiveDataRowEis tag_invoke(const json::value_to_tag<LiveDataRowEis>&, const json::value& jv) {
    constexpr std::string_view layout = "row layout";
    const auto& object = objectOf(jv, layout);
    LiveDataRowEis row;
    row.impedances = numberLists(object, "impedances", layout);
    row.paths = numberLists(object, "paths", layout);
    row.paths_waves = numberLists(object, "paths_waves", layout);
    row.async_paths = numberLists(object, "async_paths", layout);
    row.potentiostats = numberLists(object, "potentiostats", layout);
    row.meta = numberLists(object, "meta", layout);
    return row;
}

void tag_invoke(const json::value_from_tag&, json::value& jv, const LiveDataRowEis& row) {
    json::object object;
    object["impedances"] = listsToJson(row.impedances);
    object["paths"] = listsToJson(row.paths);
    object["paths_waves"] = listsToJson(row.paths_waves);
    object["async_paths"] = listsToJson(row.async_paths);
    object["potentiostats"] = listsToJson(row.potentiostats);
    object["meta"] = listsToJson(row.meta);
    jv = std::move(object);
}

LiveDataWavesEis tag_invoke(const json::value_to_tag<LiveDataWavesEis>&, const json::value& jv) {
    constexpr std::string_view layout = "wave layout";
    const auto& object = objectOf(jv, layout);
    LiveDataWavesEis waves;
    waves.paths_waves = numberLists(object, "paths_waves", layout);
    waves.offset = unsignedMember(object, "offset");
    waves.full_wave_size = unsignedMember(object, "full_wave_size");
    return waves;
}

void tag_invoke(const json::value_from_tag&, json::value& jv, const LiveDataWavesEis& waves) {
    json::object object;
    object["paths_waves"] = listsToJson(waves.paths_waves);
    object["offset"] = waves.offset;
    object["full_wave_size"] = waves.full_wave_size;
    jv = std::move(object);
}

}  // namespace velmar
