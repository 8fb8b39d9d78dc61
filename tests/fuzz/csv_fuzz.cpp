// libFuzzer harness of the CSV text reader: any input gives a table or a refusal, never a
// crash, a leak or a hang; a table that is accepted has the shape it declares. Needs only
// xml/csv.cpp (and the include paths of the project root and velmar_json_common).

#include "xml/csv.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    {
        VXml::CsvParser parser(text);
        if (parser.parse()) {
            if (parser.columns().size() != parser.columnCount()) __builtin_trap();
            for (const auto& column : parser.columns()) {
                if (column.size() != parser.rowCount()) __builtin_trap();
            }
        } else if (!parser.columns().empty()) {
            __builtin_trap();
        }
    }
    {
        VXml::CsvParser parser(text);
        (void)parser.parseWaveVariable();
    }
    {
        VXml::CsvParser parser(text);
        if (parser.parseWave(size % 5)) {
            for (const auto& wave : parser.waves()) {
                if (wave.size() != size % 5) __builtin_trap();
            }
        }
    }
    for (const auto token : VXml::CsvParser::tokenize(text)) {
        double value = 0.0;
        (void)VXml::CsvParser::parseNumber(token, value);
    }
    return 0;
}
