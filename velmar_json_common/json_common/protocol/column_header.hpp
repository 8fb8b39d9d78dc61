#pragma once

#include "json_common/logging/error_object.hpp"

#include <boost/json/fwd.hpp>

#include <compare>
#include <expected>
#include <string>
#include <utility>
#include <vector>

namespace velmar {

/// What one dataset column holds: the quantity (dimension), its unit and the urn of the
/// source on the workstation (unique within one dataset).
struct ColumnHeader {
    std::string dimension;
    std::string unit;
    std::string urn;

    ColumnHeader() = default;
    ColumnHeader(std::string dimensionName, std::string unitName, std::string urnName)
        : dimension(std::move(dimensionName)), unit(std::move(unitName)), urn(std::move(urnName)) {}

    const std::string& getDimension() const { return dimension; }
    const std::string& getUnit() const { return unit; }
    const std::string& getUrn() const { return urn; }

    /// Equal when all three strings are equal.
    friend bool operator==(const ColumnHeader&, const ColumnHeader&) = default;

    /// Strict ordering for ordered maps: urn, then dimension, then unit, each compared as a
    /// plain byte string (a prefix sorts first).
    friend bool operator<(const ColumnHeader& a, const ColumnHeader& b) {
        if (const int c = a.urn.compare(b.urn); c != 0) return c < 0;
        if (const int c = a.dimension.compare(b.dimension); c != 0) return c < 0;
        return a.unit.compare(b.unit) < 0;
    }
};

/// Writes a header list as three parallel string arrays "dimensions", "units", "urns" into
/// `out` (element i of each array describes column i).
void writeColumnHeaderArrays(boost::json::object& out, const std::vector<ColumnHeader>& columns);

/// The header list as an object holding only the three parallel arrays.
boost::json::object columnHeadersToJson(const std::vector<ColumnHeader>& columns);

/// Reads the three parallel arrays. Fails with JSON_MALFORMED when the value is not an
/// object, an array is missing, holds a non-string, or the arrays differ in length.
std::expected<std::vector<ColumnHeader>, ErrorObject> columnHeadersFromJson(const boost::json::value& value);

}  // namespace velmar
