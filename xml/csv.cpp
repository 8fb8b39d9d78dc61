#include "xml/csv.hpp"

#include "xml/xml_messages.hpp"

#include <algorithm>
#include <charconv>

namespace VXml {

namespace {

/// The longest text of "%.17g": sign, 17 digits, point, "e-308".
constexpr std::size_t MAX_NUMBER_CHARS = 26;

void appendHeaderField(std::string& out, std::string_view text) {
    const std::size_t start = out.size();
    out.append(text);
    // A ";" would split the field and a line end the line; the names themselves travel in
    // the `data-structure` attributes, so the header lines only have to keep their shape.
    for (auto it = out.begin() + static_cast<std::ptrdiff_t>(start); it != out.end(); ++it) {
        if (*it == ';') *it = ',';
        else if (*it == '\n' || *it == '\r') *it = ' ';
    }
    out.push_back(';');
}

constexpr bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

std::string_view stripBlanks(std::string_view field) {
    while (!field.empty() && isBlank(field.front())) field.remove_prefix(1);
    while (!field.empty() && isBlank(field.back())) field.remove_suffix(1);
    return field;
}

/// Calls `onField` for each field of the line as tokenize() splits it; stops when it returns
/// false. Returns the number of fields visited, or npos when stopped.
template <class OnField>
std::size_t forEachField(std::string_view line, OnField&& onField) {
    if (line.find(';') == std::string_view::npos) return 0;
    std::size_t count = 0;
    std::size_t start = 0;
    while (start < line.size()) {
        const std::size_t end = line.find(';', start);
        if (end == std::string_view::npos) {
            // Text after the last ";" is a field only when not empty.
            if (!onField(line.substr(start), count)) return std::string_view::npos;
            return count + 1;
        }
        if (!onField(line.substr(start, end - start), count)) return std::string_view::npos;
        ++count;
        start = end + 1;
    }
    return count;
}

}  // namespace

std::string removeSemicolons(std::string_view text) {
    std::string out(text);
    std::replace(out.begin(), out.end(), ';', ',');
    return out;
}

void appendDouble(std::string& out, double value) {
    char buffer[MAX_NUMBER_CHARS + 8];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 17);
    out.append(buffer, result.ptr);
}

std::string writeCsvTable(std::span<const CsvColumn> columns) {
    std::size_t rows = 0;
    std::size_t headerBytes = 0;
    for (const auto& column : columns) {
        rows = std::max(rows, column.values != nullptr ? column.values->size() : 0);
        headerBytes += column.name.size() + column.unit.size() + column.group.size() + 3;
    }
    std::string out;
    out.reserve(headerBytes + 3 + rows * (columns.size() * (MAX_NUMBER_CHARS + 1) + 1));
    for (const auto& column : columns) appendHeaderField(out, column.name);
    out.push_back('\n');
    for (const auto& column : columns) appendHeaderField(out, column.unit);
    out.push_back('\n');
    for (const auto& column : columns) appendHeaderField(out, column.group);
    out.push_back('\n');
    for (std::size_t row = 0; row < rows; ++row) {
        for (const auto& column : columns) {
            if (column.values != nullptr && row < column.values->size()) appendDouble(out, (*column.values)[row]);
            out.push_back(';');
        }
        out.push_back('\n');
    }
    return out;
}

std::string writeWaveTable(const std::vector<std::vector<double>>& waves) {
    std::size_t samples = 0;
    for (const auto& wave : waves) samples += wave.size() + 1;
    std::string out;
    out.reserve(samples * (MAX_NUMBER_CHARS + 1) + waves.size());
    for (const auto& wave : waves) {
        char buffer[24];
        const auto result = std::to_chars(buffer, buffer + sizeof buffer, wave.size());
        out.append(buffer, result.ptr);
        out.push_back(';');
        for (const double value : wave) {
            appendDouble(out, value);
            out.push_back(';');
        }
        out.push_back('\n');
    }
    return out;
}

bool CsvParser::nextTableLine(std::string_view& line) {
    if (!getNextLine(line)) return false;
    // The CR of a CRLF line end would otherwise be a field of its own after the last ";".
    while (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return true;
}

bool CsvParser::getNextLine(std::string_view& line) {
    std::size_t start = 0;
    while (start < rest_.size() && (rest_[start] == '\r' || rest_[start] == '\n')) ++start;
    // The text ends at its end or at a NUL character.
    if (start >= rest_.size() || rest_[start] == '\0') {
        rest_ = {};
        return false;
    }
    std::size_t end = rest_.find('\n', start);
    if (end == std::string_view::npos) end = rest_.size();
    line = rest_.substr(start, end - start);
    // A NUL inside the line ends the text there.
    if (const std::size_t nul = line.find('\0'); nul != std::string_view::npos) {
        line = line.substr(0, nul);
        end = rest_.size();
    }
    rest_.remove_prefix(end);
    return true;
}

std::vector<std::string_view> CsvParser::tokenize(std::string_view line) {
    std::vector<std::string_view> tokens;
    forEachField(line, [&](std::string_view field, std::size_t) {
        tokens.push_back(field);
        return true;
    });
    return tokens;
}

bool CsvParser::parseNumber(std::string_view field, double& value) {
    field = stripBlanks(field);
    if (field.empty()) return false;
    const auto result = std::from_chars(field.data(), field.data() + field.size(), value, std::chars_format::general);
    return result.ec == std::errc{} && result.ptr == field.data() + field.size();
}

bool CsvParser::fail(std::string reason) {
    error_ = std::move(reason);
    columns_.clear();
    waves_.clear();
    rows_ = 0;
    return false;
}

bool CsvParser::parseRow(std::string_view line, std::vector<double>& row) {
    row.clear();
    const std::size_t fields = forEachField(line, [&](std::string_view field, std::size_t) {
        double value = 0.0;
        if (!parseNumber(field, value)) return false;
        row.push_back(value);
        return true;
    });
    return fields != std::string_view::npos;
}

bool CsvParser::parse() {
    error_.clear();
    columns_.clear();
    rows_ = 0;
    std::vector<std::string>* headerLines[] = {&names_, &units_, &groups_};
    for (auto* target : headerLines) {
        target->clear();
        std::string_view line;
        if (!nextTableLine(line)) return fail(std::string(messages::CSV_HEADER_LINE_MISSING));
        for (const auto token : tokenize(line)) target->emplace_back(token);
    }
    if (names_.size() != units_.size() || names_.size() != groups_.size()) {
        return fail(std::string(messages::CSV_COLUMN_SIZE_MISMATCH));
    }
    const std::size_t columnCount = names_.size();
    columns_.resize(columnCount);
    // Sized from the text itself (not from a declaration): one row per line at most.
    const std::string_view remaining = rest_;
    std::size_t lineCount = static_cast<std::size_t>(std::count(remaining.begin(), remaining.end(), '\n')) + 1;
    for (auto& column : columns_) column.reserve(lineCount);
    std::string_view line;
    while (nextTableLine(line)) {
        std::size_t fields = forEachField(line, [&](std::string_view field, std::size_t index) {
            double value = 0.0;
            if (index >= columnCount || !parseNumber(field, value)) return false;
            columns_[index].push_back(value);
            return true;
        });
        if (fields != columnCount) return fail(std::string(messages::CSV_ROW_INVALID));
        ++rows_;
    }
    return true;
}

bool CsvParser::parseWave(std::size_t size) {
    error_.clear();
    waves_.clear();
    std::string_view line;
    std::vector<double> row;
    while (nextTableLine(line)) {
        if (!parseRow(line, row) || row.size() != size) return fail(std::string(messages::CSV_ROW_INVALID));
        waves_.push_back(row);
    }
    return true;
}

bool CsvParser::parseWaveVariable() {
    error_.clear();
    waves_.clear();
    std::string_view line;
    while (nextTableLine(line)) {
        const std::size_t separator = line.find(';');
        if (separator == std::string_view::npos) return fail(std::string(messages::CSV_ROW_INVALID));
        const std::string_view countField = stripBlanks(line.substr(0, separator));
        std::size_t count = 0;
        const auto result = std::from_chars(countField.data(), countField.data() + countField.size(), count);
        if (countField.empty() || result.ec != std::errc{} || result.ptr != countField.data() + countField.size()) {
            return fail(std::string(messages::CSV_ROW_INVALID));
        }
        auto& wave = waves_.emplace_back();
        // The count is a claim: the samples are counted as they are read, never reserved from it.
        const std::size_t fields = forEachField(line.substr(separator + 1), [&](std::string_view field, std::size_t) {
            double value = 0.0;
            if (!parseNumber(field, value)) return false;
            wave.push_back(value);
            return true;
        });
        if (fields == std::string_view::npos || fields != count) return fail(std::string(messages::CSV_ROW_INVALID));
    }
    return true;
}

}  // namespace VXml
