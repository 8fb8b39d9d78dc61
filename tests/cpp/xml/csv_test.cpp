#include "xml/csv.hpp"

#include "xml/xml_messages.hpp"
#include "xml/xml_test_support.hpp"

#include <cstdio>

namespace {

using namespace velmar;
using namespace velmar::testing;
using VXml::CsvParser;

TEST(CsvParser, LinesSkipBlankRunsKeepCrBeforeLfAndEndAtNul) {
    const std::string text = std::string("\r\n\na;b;\r\n\r\n\nc;\n", 16) + std::string("\0d;\n", 4);
    CsvParser parser(text);
    std::string_view line;
    ASSERT_TRUE(parser.getNextLine(line));
    EXPECT_EQ(line, "a;b;\r");
    ASSERT_TRUE(parser.getNextLine(line));
    EXPECT_EQ(line, "c;");
    EXPECT_FALSE(parser.getNextLine(line));
}

TEST(CsvParser, TokensFollowTheSeparatorRules) {
    EXPECT_EQ(CsvParser::tokenize("1;2;3;").size(), 3u);
    EXPECT_TRUE(CsvParser::tokenize("no separator").empty());
    EXPECT_EQ(CsvParser::tokenize("1;2;3"), (std::vector<std::string_view>{"1", "2", "3"}));
    EXPECT_EQ(CsvParser::tokenize(";;"), (std::vector<std::string_view>{"", ""}));
}

TEST(CsvParser, NumberFieldsAreStrippedAndConvertedWhole) {
    double value = 0.0;
    EXPECT_TRUE(CsvParser::parseNumber(" 1.5\r", value));
    EXPECT_EQ(value, 1.5);
    EXPECT_TRUE(CsvParser::parseNumber("\t-2e-3 ", value));
    EXPECT_EQ(value, -2e-3);
    for (const char* spelled : {"nan", "-nan", "inf", "-inf"}) {
        EXPECT_TRUE(CsvParser::parseNumber(spelled, value)) << spelled;
    }
    EXPECT_TRUE(std::signbit(value));
    for (const char* bad : {"", "  \r", "1.5x", "1,5", "0x10", "1 2", "+1", "e5"}) {
        EXPECT_FALSE(CsvParser::parseNumber(bad, value)) << bad;
    }
}

TEST(CsvParser, TableIsReadColumnByColumnWithCrLfLines) {
    CsvParser parser("t;u;\r\ns;V;\r\n;x;\r\n1;2;\r\n3; 4 ;\r\n");
    ASSERT_TRUE(parser.parse()) << parser.error();
    EXPECT_EQ(parser.names(), (std::vector<std::string>{"t", "u"}));
    EXPECT_EQ(parser.units(), (std::vector<std::string>{"s", "V"}));
    EXPECT_EQ(parser.groups(), (std::vector<std::string>{"", "x"}));
    EXPECT_EQ(parser.rowCount(), 2u);
    EXPECT_EQ(parser.columns(), (std::vector<std::vector<double>>{{1, 3}, {2, 4}}));
}

TEST(CsvParser, BadTablesFailWithoutKeepingAPartialTable) {
    struct Case {
        const char* text;
        std::string_view reason;
    };
    const Case cases[] = {
        {"a;b;\ns;V;\n", VXml::messages::CSV_HEADER_LINE_MISSING},
        {"a;b;\ns;\nx;y;\n", VXml::messages::CSV_COLUMN_SIZE_MISMATCH},
        {"a;b;\ns;V;\nx;y;\n1;2;\n3;\n", VXml::messages::CSV_ROW_INVALID},
        {"a;b;\ns;V;\nx;y;\n1;2;\n3;4;5;\n", VXml::messages::CSV_ROW_INVALID},
        {"a;b;\ns;V;\nx;y;\n1;2;\n3;;\n", VXml::messages::CSV_ROW_INVALID},
        {"a;b;\ns;V;\nx;y;\n1;2;\n3;four;\n", VXml::messages::CSV_ROW_INVALID},
    };
    for (const auto& c : cases) {
        CsvParser parser(c.text);
        EXPECT_FALSE(parser.parse()) << c.text;
        EXPECT_EQ(parser.error(), c.reason) << c.text;
        EXPECT_TRUE(parser.columns().empty()) << c.text;
        EXPECT_EQ(parser.rowCount(), 0u) << c.text;
    }
}

TEST(CsvWriter, HeaderFieldsAndRowsEndInSeparatorAndLineFeed) {
    const std::vector<double> a{1.5, -0.0}, b{std::numeric_limits<double>::quiet_NaN(), 0.1};
    const VXml::CsvColumn columns[] = {{"po;tential", "V;x", "MAIN:1", &a}, {"current", "A", "line\nbreak", &b}};
    EXPECT_EQ(VXml::writeCsvTable(columns),
              "po,tential;current;\nV,x;A;\nMAIN:1;line break;\n1.5;nan;\n-0;0.10000000000000001;\n");
}

TEST(CsvWriter, EveryDoubleReadsBackBitForBit) {
    auto values = awkwardValues();
    const auto random = randomDoubles(20000, 7);
    values.insert(values.end(), random.begin(), random.end());
    const std::vector<double> index(values.size(), 1.0);
    const VXml::CsvColumn columns[] = {{"v", "", "", &values}, {"one", "", "", &index}};
    const auto text = VXml::writeCsvTable(columns);
    CsvParser parser(text);
    ASSERT_TRUE(parser.parse()) << parser.error();
    EXPECT_EQ(bitsOf(parser.columns()[0]), bitsOf(values));
    // Precision is "%.17g", exactly as printf writes it.
    for (const double value : awkwardValues()) {
        char expected[64];
        std::snprintf(expected, sizeof expected, "%.17g", value);
        std::string written;
        VXml::appendDouble(written, value);
        EXPECT_EQ(written, expected);
    }
}

TEST(CsvWriter, DcTableHasDimensionsUnitsAndUrns) {
    const auto dataset = dcDataset(2);
    EXPECT_EQ(VXml::writeDcTable(dataset),
              "time;potential, set;current;\ns;V;µA;\nMAIN:TIME;MAIN:1:VOLTAGE;MAIN:1:CURRENT;\n"
              "0;-0.5;0;\n0.01;-0.499;-0;\n");
}

TEST(CsvWriter, ImpedanceTablePutsPathsBeforeImpedancesWithTheirGroupTexts) {
    auto dataset = eisDatasetOf({eisRow(1.0, 0.0, {1.0, 2.0})});
    const auto text = VXml::EisCsvWriter(dataset).text();
    CsvParser parser(text);
    ASSERT_TRUE(parser.parse()) << parser.error();
    EXPECT_EQ(parser.names(), (std::vector<std::string>{"frequency", "periods", "time", "wave_id", "wave_size", "dc",
                                                        "gain", "dc", "|impedance|", "phase", "dc", "dc", "shunt"}));
    EXPECT_EQ(parser.groups(), (std::vector<std::string>{"", "", "", "", "", "voltage", "voltage", "current",
                                                         VOLTAGE_URI + "/" + CURRENT_URI,
                                                         VOLTAGE_URI + "/" + CURRENT_URI, "temperature", POT_URI,
                                                         POT_URI}));
    EXPECT_EQ(parser.columns()[8], (std::vector<double>{101.0}));
}

TEST(CsvWaveTable, WavesOfDifferingLengthsRoundTrip) {
    const std::vector<std::vector<double>> waves{{1.0, -0.0, 5e-324}, {}, {std::numeric_limits<double>::infinity()}};
    const auto text = VXml::writeWaveTable(waves);
    EXPECT_EQ(text, "3;1;-0;4.9406564584124654e-324;\n0;\n1;inf;\n");
    CsvParser parser(text);
    ASSERT_TRUE(parser.parseWaveVariable());
    ASSERT_EQ(parser.waves().size(), 3u);
    EXPECT_EQ(bitsOf(parser.waves()[0]), bitsOf(waves[0]));
    EXPECT_TRUE(parser.waves()[1].empty());
}

TEST(CsvWaveTable, CountsThatDoNotMatchTheSamplesAreRefused) {
    for (const char* text : {"3;1;2;\n", "1;1;2;\n", "x;1;\n", "2\n", "-1;\n", "1;a;\n"}) {
        CsvParser parser(text);
        EXPECT_FALSE(parser.parseWaveVariable()) << text;
        EXPECT_TRUE(parser.waves().empty()) << text;
    }
}

TEST(CsvWaveTable, FixedSizeWavesNeedEveryLineOfThatSize) {
    CsvParser good("1;2;\r\n3;4;\n");
    ASSERT_TRUE(good.parseWave(2));
    EXPECT_EQ(good.waves(), (std::vector<std::vector<double>>{{1, 2}, {3, 4}}));
    CsvParser bad("1;2;\n3;\n");
    EXPECT_FALSE(bad.parseWave(2));
}

}  // namespace
