#include "xml/xml_legacy.hpp"

#include "xml/detail/xml_elements.hpp"

namespace VXml::Legacy {

using namespace VXml::detail;

std::expected<std::size_t, ErrorObject> readPathWaveSize(const tinyxml2::XMLElement* table) {
    return numberAttribute<std::size_t>(table, "wave-size");
}

std::expected<std::vector<std::vector<double>>, ErrorObject> parseFixedSizeWaveTable(const tinyxml2::XMLElement* table,
                                                                                      std::size_t path,
                                                                                      std::size_t rows) {
    auto size = readPathWaveSize(table);
    if (!size) return std::unexpected(size.error());
    // Waves of no samples leave no lines: every row then has an empty wave.
    const bool empty = elementText(table).find(';') == std::string_view::npos;
    if (*size == 0 && empty) return std::vector<std::vector<double>>(rows);
    CsvParser parser(elementText(table));
    if (*size == 0 || !parser.parseWave(*size) || parser.waves().size() != rows) {
        return std::unexpected(contentError(messages::AC_LEGACY_WAVE_TABLE_MISMATCH, path, rows, *size));
    }
    return std::move(parser.waves());
}

}  // namespace VXml::Legacy
