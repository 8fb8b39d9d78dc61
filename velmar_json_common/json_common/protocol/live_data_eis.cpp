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
    std::error_code ec;
    const auto number = value->to_number<std::uint64_t>(ec);
    if (ec) mismatch("wave layout: '" + std::string(key) + "' is not an unsigned integer");
    return number;
}

json::array listsToJson(const NumberLists& lists) { return detail::memberToJson(lists).as_array(); }


template <class Header>
std::vector<Header> groupList(const json::object& object, std::string_view key, std::string_view layout) {
    const auto& array = arrayMember(object, key, layout);
    std::vector<Header> headers;
    headers.reserve(array.size());
    for (const auto& element : array) {
        try {
            headers.push_back(json::value_to<Header>(element));
        } catch (const std::invalid_argument& error) {
            mismatch(std::string(layout) + ": '" + std::string(key) + "': " + error.what());
        }
    }
    return headers;
}

template <class Header>
json::array groupArray(const std::vector<Header>& headers) {
    json::array array;
    array.reserve(headers.size());
    for (const auto& header : headers) array.push_back(json::value_from(header));
    return array;
}

}  // namespace

std::vector<ColumnHeader> LiveDataHeaderEis::allColumns() const {
    std::vector<ColumnHeader> all;
    all.reserve(totalColumnCount());
    auto add = [&all](const std::vector<ColumnHeader>& columns) { all.insert(all.end(), columns.begin(), columns.end()); };
    add(meta);
    for (const auto& group : impedances) add(group.columns);
    for (const auto& group : paths) add(group.columns);
    for (const auto& group : async_paths) add(group.columns);
    for (const auto& group : potentiostats) add(group.columns);
    return all;
}

std::size_t LiveDataHeaderEis::totalColumnCount() const {
    std::size_t count = meta.size();
    for (const auto& group : impedances) count += group.columns.size();
    for (const auto& group : paths) count += group.columns.size();
    for (const auto& group : async_paths) count += group.columns.size();
    for (const auto& group : potentiostats) count += group.columns.size();
    return count;
}

const std::vector<double>& LiveDataRowEis::getMeta() const {
    static const std::vector<double> empty;
    return meta.empty() ? empty : meta.front();
}

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
    header.impedances = groupList<ImpedanceDataHeader>(object, "impedances", layout);
    header.paths = groupList<PathDataHeader>(object, "paths", layout);
    header.async_paths = groupList<PathDataHeader>(object, "async_paths", layout);
    header.potentiostats = groupList<PotentiostatDataHeader>(object, "potentiostats", layout);
    const auto* meta = object.if_contains("meta");
    if (meta == nullptr) mismatch("header: 'meta' missing");
    try {
        header.meta = columnListFromJson(*meta, "meta");
    } catch (const std::invalid_argument& error) {
        mismatch(std::string("header: ") + error.what());
    }
    header.columns = header.allColumns();
    return header;
}

void tag_invoke(const json::value_from_tag&, json::value& jv, const LiveDataHeaderEis& header) {
    json::object object;
    object["measurement_type"] = header.measurement_type;
    object["measurement_type_short"] = header.measurement_type_short;
    json::array dimensions;
    json::array units;
    for (const auto& column : header.allColumns()) {
        dimensions.push_back(json::string(column.dimension));
        units.push_back(json::string(column.unit));
    }
    object["dimensions"] = std::move(dimensions);
    object["units"] = std::move(units);
    object["impedances"] = groupArray(header.impedances);
    object["paths"] = groupArray(header.paths);
    object["async_paths"] = groupArray(header.async_paths);
    object["potentiostats"] = groupArray(header.potentiostats);
    object["meta"] = columnHeadersToJson(header.meta);
    jv = std::move(object);
}

namespace {

template <class Header>
std::string checkGroup(const NumberLists& lists, const std::vector<Header>& headers, std::string_view key) {
    if (lists.size() != headers.size()) {
        return std::string(key) + ": " + std::to_string(lists.size()) + " lists for " + std::to_string(headers.size()) +
               " declared";
    }
    for (std::size_t i = 0; i < lists.size(); ++i) {
        if (lists[i].size() != headers[i].columns.size()) {
            return std::string(key) + ": list " + std::to_string(i) + " holds " + std::to_string(lists[i].size()) +
                   " values for " + std::to_string(headers[i].columns.size()) + " columns";
        }
    }
    return {};
}

}  // namespace

std::string checkRowAgainstHeader(const LiveDataRowEis& row, const LiveDataHeaderEis& header) {
    if (auto why = checkGroup(row.impedances, header.impedances, "impedances"); !why.empty()) return why;
    if (auto why = checkGroup(row.paths, header.paths, "paths"); !why.empty()) return why;
    if (auto why = checkGroup(row.async_paths, header.async_paths, "async_paths"); !why.empty()) return why;
    if (auto why = checkGroup(row.potentiostats, header.potentiostats, "potentiostats"); !why.empty()) return why;
    if (row.meta.size() != 1 || row.meta.front().size() != header.meta.size()) {
        const std::size_t values = row.meta.size() == 1 ? row.meta.front().size() : 0;
        return "meta: " + std::to_string(row.meta.size()) + " lists of " + std::to_string(values) + " values for " +
               std::to_string(header.meta.size()) + " meta columns";
    }
    if (!row.paths_waves.empty() && row.paths_waves.size() != header.paths.size()) {
        return "paths_waves: " + std::to_string(row.paths_waves.size()) + " waves for " +
               std::to_string(header.paths.size()) + " sync paths";
    }
    return {};
}

std::string checkWavesAgainstHeader(const LiveDataWavesEis& waves, const LiveDataHeaderEis& header) {
    if (waves.paths_waves.size() != header.paths.size()) {
        return "wave fragment: " + std::to_string(waves.paths_waves.size()) + " fragments for " +
               std::to_string(header.paths.size()) + " sync paths";
    }
    if (waves.full_wave_size != 0) {
        for (std::size_t p = 0; p < waves.paths_waves.size(); ++p) {
            const std::uint64_t length = waves.paths_waves[p].size();
            if (waves.offset > waves.full_wave_size || length > waves.full_wave_size - waves.offset) {
                return "wave fragment: samples " + std::to_string(waves.offset) + " to " +
                       std::to_string(waves.offset + length) + " of path " + std::to_string(p) + " exceed " +
                       std::to_string(waves.full_wave_size) + " samples";
            }
        }
    }
    return {};
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
