#pragma once

// The semicolon-separated text that carries the numbers of a dataset inside its `csv`
// element: three header lines (names, units, urns or group texts), then one line per row;
// every field is followed by ";", lines end with "\n". Numbers are written as printf "%.17g"
// writes them ("nan", "-nan", "inf", "-inf" included), so every double reads back bit for bit
// (a NaN keeps its sign, not its payload).

#include "json_common/protocol/column_header.hpp"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tinyxml2 {
class XMLDocument;
class XMLElement;
}  // namespace tinyxml2

namespace velmar {
class DcDataset;
class EisDataset;
}  // namespace velmar

namespace VXml {

/// The text with every ";" replaced by ",".
std::string removeSemicolons(std::string_view text);

/// Appends the value as printf "%.17g" writes it.
void appendDouble(std::string& out, double value);

/// One column of a table to write: its three header texts and its values.
struct CsvColumn {
    std::string_view name;
    std::string_view unit;
    /// The third header line: the urn (DC) or the group text (impedance tables).
    std::string_view group;
    const std::vector<double>* values = nullptr;
};

/// The whole table: the three header lines and one line per row (the length of the longest
/// column; a shorter column leaves its fields empty, which the parser refuses, so callers
/// check the shape first). One buffer, sized from the values before writing.
std::string writeCsvTable(std::span<const CsvColumn> columns);

/// The table of a DC dataset: dimension, unit and urn of every column, then the rows.
std::string writeDcTable(const velmar::DcDataset& dataset);

/// Writes the table of an impedance dataset: the meta columns (group text empty), then the
/// columns of each sync path (its name), of each impedance ("numerator/denominator"), of each
/// async path (its name) and of each potentiostat (its uri), each group in header order.
/// The dataset must outlive the writer.
class EisCsvWriter {
public:
    explicit EisCsvWriter(const velmar::EisDataset& dataset);

    /// Builds the text and sets it as the element's text.
    void writeTo(tinyxml2::XMLDocument& document, tinyxml2::XMLElement* element);
    /// The table as text.
    std::string text();
    /// Adds the columns of one group element with its tracks.
    void appendDataHeaderColumns(const std::vector<velmar::ColumnHeader>& headers, std::string_view group,
                                 const std::vector<std::vector<double>>& tracks);

private:
    const velmar::EisDataset& dataset_;
    std::vector<CsvColumn> columns_;
    /// Group texts built here ("numerator/denominator"), kept alive for columns_.
    std::vector<std::string> groupTexts_;
};

/// A wave table (current layout): one line per wave, its sample count then its samples, each
/// field followed by ";". An empty wave is the line "0;".
std::string writeWaveTable(const std::vector<std::vector<double>>& waves);

/// Reads the text of a `csv` element in one pass. The text must outlive the parser.
class CsvParser {
public:
    explicit CsvParser(std::string_view text) : rest_(text) {}

    /// Reads the three header lines and the rows. False when a header line is missing, the
    /// header lines differ in their number of fields ("column size mismatch"), a row has
    /// another number of fields, or a field is not a number. No partial table is kept.
    bool parse();
    /// Reads a wave table of waves of `size` samples each, one wave per line (the layout of
    /// older files). False on the first line of another length or a field that is no number.
    bool parseWave(std::size_t size);
    /// Reads a wave table of the current layout (sample count, then the samples, per line).
    bool parseWaveVariable();

    /// Skips CR and LF runs and gives the next line (up to the next LF, without it; a CR
    /// before the LF stays). False at the end of the text.
    bool getNextLine(std::string_view& line);
    /// The fields of a line, split at every ";": no ";" gives no fields; the text after the
    /// last ";" is a field only when it is not empty.
    static std::vector<std::string_view> tokenize(std::string_view line);
    /// A number field: blanks, tabs and CRs stripped at both ends, the rest converted whole
    /// in general notation. False for an empty field or one that does not convert whole.
    static bool parseNumber(std::string_view field, double& value);

    /// What the last failed parse reports ("column size mismatch", ...); empty after success.
    const std::string& error() const { return error_; }
    const std::vector<std::string>& names() const { return names_; }
    const std::vector<std::string>& units() const { return units_; }
    const std::vector<std::string>& groups() const { return groups_; }
    std::size_t columnCount() const { return names_.size(); }
    std::size_t rowCount() const { return rows_; }
    /// The values column by column (after parse()).
    std::vector<std::vector<double>>& columns() { return columns_; }
    /// The waves (after parseWave or parseWaveVariable).
    std::vector<std::vector<double>>& waves() { return waves_; }

private:
    bool fail(std::string reason);
    /// getNextLine without the CRs that end the line.
    bool nextTableLine(std::string_view& line);
    /// Reads the fields of a line into `row` (cleared first); false on a field that is no number.
    bool parseRow(std::string_view line, std::vector<double>& row);

    std::string_view rest_;
    std::string error_;
    std::vector<std::string> names_;
    std::vector<std::string> units_;
    std::vector<std::string> groups_;
    std::vector<std::vector<double>> columns_;
    std::vector<std::vector<double>> waves_;
    std::size_t rows_ = 0;
};

}  // namespace VXml
