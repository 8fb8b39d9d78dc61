#include "json_common/protocol/impedance_headers.hpp"

#include <boost/json.hpp>

#include <stdexcept>
#include <string>
#include <string_view>

namespace velmar {

namespace json = boost::json;

namespace {

[[noreturn]] void malformed(std::string_view where, std::string_view what) {
    throw std::invalid_argument(std::string(where) + ": " + std::string(what));
}

const json::object& objectOf(const json::value& jv, std::string_view where) {
    const auto* object = jv.if_object();
    if (object == nullptr) malformed(where, "not an object");
    return *object;
}

std::string textMember(const json::object& object, std::string_view key, std::string_view where) {
    const auto* value = object.if_contains(key);
    if (value == nullptr || !value->is_string()) malformed(where, "'" + std::string(key) + "' missing or not a text");
    return std::string(value->get_string());
}

const json::array* textArray(const json::object& object, std::string_view key, std::string_view where, bool required) {
    const auto* value = object.if_contains(key);
    if (value == nullptr && !required) return nullptr;
    if (value == nullptr || !value->is_array()) malformed(where, "'" + std::string(key) + "' missing or not an array");
    for (const auto& element : value->get_array()) {
        if (!element.is_string()) malformed(where, "'" + std::string(key) + "' holds a value that is not a text");
    }
    return &value->get_array();
}

/// A polynomial as its record ({"coefficients": [...]}) or as a bare list of coefficients.
std::optional<UserPolynomial> polynomialMember(const json::object& object, std::string_view key,
                                               std::string_view where) {
    const auto* value = object.if_contains(key);
    if (value == nullptr || value->is_null()) return std::nullopt;
    const json::value* coefficients = value;
    if (const auto* record = value->if_object()) {
        coefficients = record->if_contains("coefficients");
        if (coefficients == nullptr) malformed(where, "'" + std::string(key) + "' without 'coefficients'");
    }
    const auto* list = coefficients->if_array();
    if (list == nullptr) malformed(where, "'" + std::string(key) + "' is not a polynomial");
    UserPolynomial polynomial;
    polynomial.coefficients.clear();
    for (const auto& number : *list) {
        if (!number.is_number()) malformed(where, "'" + std::string(key) + "' holds a value that is not a number");
        polynomial.coefficients.push_back(number.to_number<double>());
    }
    return polynomial;
}

void writeColumns(json::object& out, const std::vector<ColumnHeader>& columns) {
    json::array dimensions;
    json::array units;
    json::array urns;
    bool anyUrn = false;
    for (const auto& column : columns) {
        dimensions.emplace_back(column.dimension);
        units.emplace_back(column.unit);
        urns.emplace_back(column.urn);
        anyUrn = anyUrn || !column.urn.empty();
    }
    out["dimensions"] = std::move(dimensions);
    out["units"] = std::move(units);
    if (anyUrn) out["urns"] = std::move(urns);
}

void writePolynomial(json::object& out, std::string_view key, const std::optional<UserPolynomial>& polynomial) {
    if (polynomial) out[key] = json::value_from(*polynomial);
}

}  // namespace

std::vector<ColumnHeader> columnListFromJson(const json::value& jv, std::string_view where) {
    const auto& object = objectOf(jv, where);
    const auto* dimensions = textArray(object, "dimensions", where, true);
    const auto* units = textArray(object, "units", where, true);
    const auto* urns = textArray(object, "urns", where, false);
    if (units->size() != dimensions->size() || (urns != nullptr && urns->size() != dimensions->size())) {
        malformed(where, "'dimensions', 'units' and 'urns' differ in length");
    }
    std::vector<ColumnHeader> columns;
    columns.reserve(dimensions->size());
    for (std::size_t i = 0; i < dimensions->size(); ++i) {
        columns.emplace_back(std::string((*dimensions)[i].get_string()), std::string((*units)[i].get_string()),
                             urns != nullptr ? std::string((*urns)[i].get_string()) : std::string());
    }
    return columns;
}

void tag_invoke(const json::value_from_tag&, json::value& jv, const PathDataHeader& header) {
    json::object out;
    out["name"] = header.name;
    out["uri"] = header.uri;
    writeColumns(out, header.columns);
    writePolynomial(out, "polynomial", header.polynomial);
    jv = std::move(out);
}

PathDataHeader tag_invoke(const json::value_to_tag<PathDataHeader>&, const json::value& jv) {
    constexpr std::string_view where = "path header";
    const auto& object = objectOf(jv, where);
    PathDataHeader header;
    if (const auto* name = object.if_contains("name"); name != nullptr && name->is_string()) {
        header.name = std::string(name->get_string());
    }
    header.uri = textMember(object, "uri", where);
    header.columns = columnListFromJson(jv, where);
    header.polynomial = polynomialMember(object, "polynomial", where);
    return header;
}

void tag_invoke(const json::value_from_tag&, json::value& jv, const PotentiostatDataHeader& header) {
    json::object out;
    out["uri"] = header.uri;
    writeColumns(out, header.columns);
    writePolynomial(out, "polynomial", header.polynomial);
    writePolynomial(out, "potentiostatic_polynomial", header.potentiostatic_polynomial);
    jv = std::move(out);
}

PotentiostatDataHeader tag_invoke(const json::value_to_tag<PotentiostatDataHeader>&, const json::value& jv) {
    constexpr std::string_view where = "potentiostat header";
    const auto& object = objectOf(jv, where);
    PotentiostatDataHeader header(textMember(object, "uri", where), columnListFromJson(jv, where));
    header.polynomial = polynomialMember(object, "polynomial", where);
    header.potentiostatic_polynomial = polynomialMember(object, "potentiostatic_polynomial", where);
    return header;
}

void tag_invoke(const json::value_from_tag&, json::value& jv, const ImpedanceDataHeader& header) {
    json::object out;
    out["impedance_name"] = header.impedance_name;
    out["numerator"] = header.numerator;
    out["denominator"] = header.denominator;
    writeColumns(out, header.columns);
    jv = std::move(out);
}

ImpedanceDataHeader tag_invoke(const json::value_to_tag<ImpedanceDataHeader>&, const json::value& jv) {
    constexpr std::string_view where = "impedance header";
    const auto& object = objectOf(jv, where);
    std::string name;
    if (const auto* text = object.if_contains("impedance_name"); text != nullptr && text->is_string()) {
        name = std::string(text->get_string());
    }
    return ImpedanceDataHeader(textMember(object, "numerator", where), textMember(object, "denominator", where),
                               columnListFromJson(jv, where), std::move(name));
}

}  // namespace velmar
