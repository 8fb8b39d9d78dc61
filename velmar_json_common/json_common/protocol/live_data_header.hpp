#pragma once

#include "json_common/logging/error_object.hpp"
#include "json_common/protocol/column_header.hpp"

#include <boost/json/fwd.hpp>

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>
#include <vector>

namespace velmar {

/// The header of a DC job's live data: the method's long and short names and the columns
/// of every row that follows.
struct LiveDataHeader {
    std::string measurement_type;
    std::string measurement_type_short;
    std::vector<ColumnHeader> columns;

    const std::string& getType() const { return measurement_type; }
    const std::string& getShortType() const { return measurement_type_short; }
    const std::vector<ColumnHeader>& getColumns() const { return columns; }
    std::size_t getNumberOfColumns() const { return columns.size(); }

    friend bool operator==(const LiveDataHeader&, const LiveDataHeader&) = default;
};

/// Writes "measurement_type_short", "measurement_type", the derived "dimensions", "units"
/// and "urns" (one entry per column), then "columns" (the three parallel arrays).
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const LiveDataHeader& header);

/// Reads "measurement_type", "measurement_type_short" (texts) and "columns"; the derived
/// top-level arrays are ignored. value_to<LiveDataHeader> throws the JSON library's
/// system_error on a mismatch.
LiveDataHeader tag_invoke(const boost::json::value_to_tag<LiveDataHeader>&, const boost::json::value& jv);

/// Non-throwing reading; failures are JSON_MALFORMED naming what did not match.
std::expected<LiveDataHeader, ErrorObject> liveDataHeaderFromJson(const boost::json::value& value);

// Binary live-data rows: a block of R rows of C columns is R x C IEEE-754 binary64 values
// in little-endian byte order, row-major (all values of row 0 in column order, then row 1,
// ...), with no header or padding. A "LIVE_DATA_ROWS" event may carry such a block as
// standard Base64 text in its "data" member instead of an array of number arrays.

/// Encodes `rowCount` rows of `columnCount` values stored row-major at `values`.
std::string encodeLiveDataRowsBase64(const double* values, std::size_t rowCount, std::size_t columnCount);

}  // namespace velmar
