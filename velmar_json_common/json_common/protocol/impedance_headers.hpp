#pragma once

// The column groups of impedance results: one header per measured impedance, per sampled
// signal path and per potentiostat. Shared by the impedance live data and the impedance
// dataset. On the wire each group header is an object whose columns are the parallel arrays
// "dimensions", "units" and, when any column has one, "urns".

#include "json_common/configuration/hardware_settings.hpp"
#include "json_common/protocol/column_header.hpp"

#include <boost/json/fwd.hpp>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace velmar {

/// A sampled signal path: its name (the path's dimension, e.g. "voltage"), its uri and its
/// columns, with the optional user polynomial that converts the raw value.
struct PathDataHeader {
    /// The name given to a path whose "name" is absent or not a text.
    static constexpr const char* UNNAMED = "unnamed";

    std::string name = UNNAMED;
    std::string uri;
    std::vector<ColumnHeader> columns;
    std::optional<UserPolynomial> polynomial;

    PathDataHeader() = default;
    PathDataHeader(std::string pathName, std::string pathUri, std::vector<ColumnHeader> pathColumns,
                   std::optional<UserPolynomial> pathPolynomial = std::nullopt)
        : name(std::move(pathName)), uri(std::move(pathUri)), columns(std::move(pathColumns)),
          polynomial(std::move(pathPolynomial)) {}

    const std::string& getName() const { return name; }
    const std::string& getUri() const { return uri; }
    const std::vector<ColumnHeader>& getColumns() const { return columns; }

    friend bool operator==(const PathDataHeader&, const PathDataHeader&) = default;
};

/// A potentiostat whose state is recorded per frequency point.
struct PotentiostatDataHeader {
    std::string uri;
    std::vector<ColumnHeader> columns;
    std::optional<UserPolynomial> polynomial;
    std::optional<UserPolynomial> potentiostatic_polynomial;

    PotentiostatDataHeader() = default;
    PotentiostatDataHeader(std::string potentiostatUri, std::vector<ColumnHeader> potentiostatColumns)
        : uri(std::move(potentiostatUri)), columns(std::move(potentiostatColumns)) {}

    const std::string& getUri() const { return uri; }
    const std::vector<ColumnHeader>& getColumns() const { return columns; }

    friend bool operator==(const PotentiostatDataHeader&, const PotentiostatDataHeader&) = default;
};

/// A measured impedance: the quotient of the numerator path over the denominator path (both
/// uris), keyed by that pair.
struct ImpedanceDataHeader {
    std::string numerator;
    std::string denominator;
    std::vector<ColumnHeader> columns;
    /// The configured name; empty when none was configured.
    std::string impedance_name;

    ImpedanceDataHeader() = default;
    ImpedanceDataHeader(std::string numeratorUri, std::string denominatorUri, std::vector<ColumnHeader> impedanceColumns,
                        std::string name)
        : numerator(std::move(numeratorUri)), denominator(std::move(denominatorUri)),
          columns(std::move(impedanceColumns)), impedance_name(std::move(name)) {}

    /// numerator + "/" + denominator.
    std::string getUri() const { return numerator + "/" + denominator; }
    std::pair<std::string, std::string> getKey() const { return {numerator, denominator}; }
    const std::vector<ColumnHeader>& getColumns() const { return columns; }

    friend bool operator==(const ImpedanceDataHeader&, const ImpedanceDataHeader&) = default;
};

// JSON forms. Reading throws std::invalid_argument naming what did not match (never a JSON
// library error with source locations); "name" of a path defaults to "unnamed".
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const PathDataHeader& header);
PathDataHeader tag_invoke(const boost::json::value_to_tag<PathDataHeader>&, const boost::json::value& jv);
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const PotentiostatDataHeader& header);
PotentiostatDataHeader tag_invoke(const boost::json::value_to_tag<PotentiostatDataHeader>&,
                                  const boost::json::value& jv);
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const ImpedanceDataHeader& header);
ImpedanceDataHeader tag_invoke(const boost::json::value_to_tag<ImpedanceDataHeader>&, const boost::json::value& jv);

/// Reads a column list in its object form ("dimensions", "units", optional "urns"); throws
/// std::invalid_argument naming `where` when the arrays are missing, hold non-texts or differ
/// in length.
std::vector<ColumnHeader> columnListFromJson(const boost::json::value& jv, std::string_view where);

}  // namespace velmar
