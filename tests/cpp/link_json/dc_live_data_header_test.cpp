#include "json_common/exact_json.hpp"
#include "json_common/protocol/column_header.hpp"
#include "json_common/protocol/live_data_header.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

#include <map>

namespace velmar {
namespace {

namespace json = boost::json;

TEST(ColumnHeader, OrdersByUrnThenDimensionThenUnitAsBytes) {
    const ColumnHeader a{"z", "z", "A"};
    const ColumnHeader b{"a", "a", "B"};
    EXPECT_TRUE(a < b);
    EXPECT_FALSE(b < a);
    EXPECT_TRUE((ColumnHeader{"current", "z", "U"} < ColumnHeader{"voltage", "a", "U"}));
    EXPECT_TRUE((ColumnHeader{"v", "A", "U"} < ColumnHeader{"v", "B", "U"}));
    EXPECT_TRUE((ColumnHeader{"v", "V", "U"} < ColumnHeader{"v", "V", "U1"}));  // prefix first
    EXPECT_TRUE((ColumnHeader{"v", "V", "Z"} < ColumnHeader{"v", "V", "a"}));   // bytes, not locale
    EXPECT_TRUE((ColumnHeader{"v", "V", "\x7f"} < ColumnHeader{"v", "V", "\xc3\xa9"}));  // unsigned bytes
    EXPECT_FALSE(a < a);
    std::map<ColumnHeader, int> map{{a, 1}, {b, 2}, {ColumnHeader{"z", "y", "A"}, 3}};
    EXPECT_EQ(map.size(), 3u);
    EXPECT_EQ((ColumnHeader{"v", "V", "U"}), (ColumnHeader{"v", "V", "U"}));
    EXPECT_NE((ColumnHeader{"v", "V", "U"}), (ColumnHeader{"v", "mV", "U"}));
}

TEST(ColumnHeaderJson, ParallelArraysOfEqualLength) {
    const std::vector<ColumnHeader> columns{{"time", "s", "T"}, {"voltage", "V", "U"}};
    const auto object = columnHeadersToJson(columns);
    EXPECT_EQ(json::serialize(object),
              R"({"dimensions":["time","voltage"],"units":["s","V"],"urns":["T","U"]})");
    EXPECT_EQ(columnHeadersFromJson(object).value(), columns);

    EXPECT_FALSE(columnHeadersFromJson(parseJsonExact(R"({"dimensions":["a"],"units":[],"urns":["c"]})")));
    EXPECT_FALSE(columnHeadersFromJson(parseJsonExact(R"({"dimensions":["a"],"units":["b"]})")));
    EXPECT_FALSE(columnHeadersFromJson(parseJsonExact(R"({"dimensions":[1],"units":["b"],"urns":["c"]})")));
    EXPECT_FALSE(columnHeadersFromJson(parseJsonExact(R"([])")));
    EXPECT_TRUE(columnHeadersFromJson(parseJsonExact(R"({"dimensions":[],"units":[],"urns":[]})"))->empty());
}

TEST(LiveDataHeaderJson, WritesDerivedArraysInOrderAndIgnoresThemOnReading) {
    const LiveDataHeader header{"Cyclic Voltammetry", "CV", {{"time", "s", "T"}, {"current", "A", "I"}}};
    const auto value = json::value_from(header);
    EXPECT_EQ(json::serialize(value),
              R"({"measurement_type_short":"CV","measurement_type":"Cyclic Voltammetry",)"
              R"("dimensions":["time","current"],"units":["s","A"],"urns":["T","I"],)"
              R"("columns":{"dimensions":["time","current"],"units":["s","A"],"urns":["T","I"]}})");
    EXPECT_EQ(json::value_to<LiveDataHeader>(value), header);

    auto changed = value;
    changed.as_object()["dimensions"] = json::array{"other"};
    changed.as_object().erase("urns");
    EXPECT_EQ(json::value_to<LiveDataHeader>(changed), header);

    auto broken = value;
    broken.as_object().erase("columns");
    EXPECT_FALSE(liveDataHeaderFromJson(broken).has_value());
    EXPECT_THROW(json::value_to<LiveDataHeader>(broken), boost::system::system_error);
    broken = value;
    broken.as_object()["measurement_type"] = 3;
    EXPECT_FALSE(liveDataHeaderFromJson(broken).has_value());
}

}  // namespace
}  // namespace velmar
