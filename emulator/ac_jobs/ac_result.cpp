#include "emulator/ac_jobs/ac_result.hpp"

#include <boost/json.hpp>

#include <bit>
#include <cmath>
#include <cstring>

namespace velmar::emulator {

namespace json = boost::json;

static_assert(std::endian::native == std::endian::little, "impedance results are little-endian");

namespace {

class Writer {
public:
    explicit Writer(std::size_t values) : bytes_(values * sizeof(double), '\0') {}
    void put(double value) {
        std::memcpy(bytes_.data() + at_, &value, sizeof(double));
        at_ += sizeof(double);
    }
    void put(std::span<const double> values) {
        if (values.empty()) return;
        std::memcpy(bytes_.data() + at_, values.data(), values.size_bytes());
        at_ += values.size_bytes();
    }
    std::string take() { return std::move(bytes_); }

private:
    std::string bytes_;
    std::size_t at_ = 0;
};

/// Calls `column(group list of a row, index in it)` for every column in binary order.
template <class F>
void forEachColumn(const LiveDataHeaderEis& header, F&& column) {
    for (std::size_t c = 0; c < header.meta.size(); ++c) column(&LiveDataRowEis::meta, 0, c);
    for (std::size_t g = 0; g < header.impedances.size(); ++g)
        for (std::size_t c = 0; c < header.impedances[g].columns.size(); ++c) column(&LiveDataRowEis::impedances, g, c);
    for (std::size_t g = 0; g < header.paths.size(); ++g)
        for (std::size_t c = 0; c < header.paths[g].columns.size(); ++c) column(&LiveDataRowEis::paths, g, c);
    for (std::size_t g = 0; g < header.async_paths.size(); ++g)
        for (std::size_t c = 0; c < header.async_paths[g].columns.size(); ++c) column(&LiveDataRowEis::async_paths, g, c);
    for (std::size_t g = 0; g < header.potentiostats.size(); ++g)
        for (std::size_t c = 0; c < header.potentiostats[g].columns.size(); ++c)
            column(&LiveDataRowEis::potentiostats, g, c);
}

std::size_t arraySize(const json::object& object, std::string_view key) {
    const auto* value = object.if_contains(key);
    return value != nullptr && value->is_array() ? value->get_array().size() : 0;
}

}  // namespace

std::string encodeAcResult(const LiveDataHeaderEis& header, std::span<const LiveDataRowEis> rows, const AcRowWave& wave) {
    std::size_t values = header.totalColumnCount() * rows.size();
    for (std::size_t p = 0; p < header.paths.size(); ++p)
        for (std::size_t r = 0; r < rows.size(); ++r) values += wave(r, p).size();
    Writer out(values);
    forEachColumn(header, [&](NumberLists LiveDataRowEis::*group, std::size_t g, std::size_t c) {
        for (const auto& row : rows) out.put((row.*group).at(g).at(c));
    });
    for (std::size_t p = 0; p < header.paths.size(); ++p)
        for (std::size_t r = 0; r < rows.size(); ++r) out.put(wave(r, p));
    return out.take();
}

json::object acResultHeader(const LiveDataHeaderEis& header, json::object jobInfo, std::size_t rows) {
    return json::object{{"job_data_header", json::value_from(header)},
                        {"job_info", std::move(jobInfo)},
                        {"number_of_rows", rows}};
}

std::optional<AcSyntheticShape> acSyntheticShape(const json::object& jobDataHeader) {
    const auto* meta = jobDataHeader.if_contains("meta");
    if (meta == nullptr || !meta->is_object() || !jobDataHeader.contains("dimensions")) return std::nullopt;
    AcSyntheticShape shape;
    shape.columns = arraySize(jobDataHeader, "dimensions");
    shape.syncPaths = arraySize(jobDataHeader, "paths");
    shape.metaColumns = arraySize(meta->get_object(), "dimensions");
    if (shape.metaColumns > shape.columns) return std::nullopt;
    return shape;
}

std::string acSyntheticResult(const json::object& jobDataHeader, const AcSyntheticShape& shape, std::size_t rows,
                              std::size_t samples) {
    const auto& metaDimensions = jobDataHeader.at("meta").at("dimensions").as_array();
    Writer out(rows * shape.columns + shape.syncPaths * rows * samples);
    for (std::size_t c = 0; c < shape.columns; ++c) {
        const auto* dimension = c < shape.metaColumns ? metaDimensions[c].if_string() : nullptr;
        const std::string_view name = dimension != nullptr ? std::string_view(*dimension) : std::string_view();
        for (std::size_t r = 0; r < rows; ++r) {
            const auto row = static_cast<double>(r);
            if (name == "frequency") {
                out.put(std::pow(10.0, 6.0 - 6.0 * row / static_cast<double>(rows)));
            } else if (name == "periods") {
                out.put(1.0);
            } else if (name == "time") {
                out.put(row * 1e-3);
            } else if (name == "wave_id") {
                out.put(row);
            } else if (name == "wave_size") {
                out.put(static_cast<double>(samples));
            } else {
                out.put(static_cast<double>(c) + row * 1e-9);
            }
        }
    }
    for (std::size_t p = 0; p < shape.syncPaths; ++p)
        for (std::size_t r = 0; r < rows; ++r)
            for (std::size_t k = 0; k < samples; ++k)
                out.put(static_cast<double>(p) + static_cast<double>(r) * 1e-6 + static_cast<double>(k) * 1e-9);
    return out.take();
}

}  // namespace velmar::emulator
