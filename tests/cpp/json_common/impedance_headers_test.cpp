// JSON forms of the impedance group headers and of the impedance live data: typed round
// trips, defaults, refused shapes, and the fit of rows and wave fragments to a header.

#include "json_common/protocol/impedance_headers.hpp"
#include "json_common/protocol/live_data_eis.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

#include <stdexcept>

namespace velmar {
namespace {

namespace json = boost::json;

std::vector<ColumnHeader> columns(std::initializer_list<const char*> dimensions) {
    std::vector<ColumnHeader> out;
    for (const char* dimension : dimensions) out.emplace_back(dimension, "", "");
    return out;
}

LiveDataHeaderEis header() {
    LiveDataHeaderEis h;
    h.measurement_type = LiveDataHeaderEis::MEASUREMENT_TYPE;
    h.measurement_type_short = LiveDataHeaderEis::MEASUREMENT_TYPE_SHORT;
    h.meta = columns({"frequency", "periods", "time", "wave_id", "wave_size"});
    h.impedances = {ImpedanceDataHeader("MAIN:1:VOLTAGE", "MAIN:1:CURRENT", columns({"|impedance|", "phase"}), "Z")};
    UserPolynomial polynomial;
    polynomial.coefficients = {0.5, 2.0};
    h.paths = {PathDataHeader("voltage", "MAIN:1:VOLTAGE", {ColumnHeader("dc", "V", "MAIN:1:VOLTAGE:DC")}, polynomial),
               PathDataHeader("current", "MAIN:1:CURRENT", columns({"dc"}))};
    h.potentiostats = {PotentiostatDataHeader("MAIN:1:POT", columns({"dc", "shunt", "bandwith", "filter"}))};
    h.columns = h.allColumns();
    return h;
}

TEST(ImpedanceHeaders, GroupHeadersRoundTripWithTheirWireKeys) {
    const auto original = header();
    const auto wire = json::value_from(original.paths[0]).as_object();
    EXPECT_EQ(wire.at("name"), "voltage");
    EXPECT_EQ(wire.at("urns").as_array().size(), 1u);
    EXPECT_EQ(json::value_to<PathDataHeader>(json::value(wire)), original.paths[0]);
    // No urns at all: the key is left out.
    EXPECT_FALSE(json::value_from(original.paths[1]).as_object().contains("urns"));

    const auto impedance = json::value_from(original.impedances[0]).as_object();
    EXPECT_EQ(impedance.at("impedance_name"), "Z");
    EXPECT_EQ(json::value_to<ImpedanceDataHeader>(json::value(impedance)), original.impedances[0]);
    EXPECT_EQ(original.impedances[0].getUri(), "MAIN:1:VOLTAGE/MAIN:1:CURRENT");
    EXPECT_EQ(json::value_to<PotentiostatDataHeader>(json::value_from(original.potentiostats[0])),
              original.potentiostats[0]);
}

TEST(ImpedanceHeaders, PathWithoutTextNameIsUnnamedAndBadColumnsAreRefused) {
    auto path = json::parse(R"({"name": 7, "uri": "u", "dimensions": ["dc"], "units": ["V"]})");
    EXPECT_EQ(json::value_to<PathDataHeader>(path).name, "unnamed");
    EXPECT_THROW(json::value_to<PathDataHeader>(json::parse(R"({"uri": "u", "dimensions": ["dc"], "units": []})")),
                 std::invalid_argument);
    EXPECT_THROW(json::value_to<ImpedanceDataHeader>(json::parse(R"({"numerator": "a", "dimensions": [], "units": []})")),
                 std::invalid_argument);
}

TEST(LiveDataEis, TypedHeaderRoundTripAndDerivedColumns) {
    const auto original = header();
    const auto wire = json::value_from(original);
    EXPECT_EQ(wire.at("dimensions").as_array().size(), original.totalColumnCount());
    EXPECT_EQ(wire.at("dimensions").as_array()[5], "|impedance|");
    const auto back = json::value_to<LiveDataHeaderEis>(wire);
    EXPECT_EQ(back, original);
    EXPECT_EQ(back.columns.size(), 13u);
}

TEST(LiveDataEis, HeaderWithoutMetaIsRefusedWithTheMismatchText) {
    auto wire = json::value_from(header()).as_object();
    wire.erase("meta");
    try {
        (void)json::value_to<LiveDataHeaderEis>(json::value(wire));
        FAIL() << "accepted a header without meta";
    } catch (const std::invalid_argument& error) {
        EXPECT_EQ(std::string(error.what()).rfind("the AC data table does not match the declared ", 0), 0u);
    }
}

TEST(LiveDataEis, RowsAndWaveFragmentsAgainstTheHeader) {
    const auto h = header();
    auto row = json::parse(R"({"impedances": [[100, 0.1]], "paths": [[1.0], [0.5]], "paths_waves": [],
        "async_paths": [], "potentiostats": [[0, 10, 1, 0]], "meta": [[1000, 3, 0.5, -1, 0]]})");
    const auto typed = json::value_to<LiveDataRowEis>(row);
    EXPECT_EQ(checkRowAgainstHeader(typed, h), "");
    EXPECT_EQ(typed.getMeta().size(), 5u);
    EXPECT_EQ(json::value_to<LiveDataRowEis>(json::value_from(typed)), typed);

    auto wrongWaves = typed;
    wrongWaves.paths_waves = {{1.0, 2.0}};
    EXPECT_EQ(checkRowAgainstHeader(wrongWaves, h), "paths_waves: 1 waves for 2 sync paths");
    auto shortPotentiostat = typed;
    shortPotentiostat.potentiostats[0].pop_back();
    EXPECT_EQ(checkRowAgainstHeader(shortPotentiostat, h), "potentiostats: list 0 holds 3 values for 4 columns");

    row.as_object().erase("meta");
    EXPECT_THROW(json::value_to<LiveDataRowEis>(row), std::invalid_argument);

    const auto whole = json::value_to<LiveDataWavesEis>(
        json::parse(R"({"paths_waves": [[1, 2, 3], [4, 5, 6]], "offset": 0, "full_wave_size": 3})"));
    EXPECT_EQ(checkWavesAgainstHeader(whole, h), "");
    auto beyond = whole;
    beyond.offset = 1;
    EXPECT_EQ(checkWavesAgainstHeader(beyond, h), "wave fragment: samples 1 to 4 of path 0 exceed 3 samples");
}

}  // namespace
}  // namespace velmar
