#pragma once

// Readers of the layouts of older file versions (see docs/file_formats.md).

#include "json_common/logging/error_object.hpp"
#include "xml/xml_serializable.hpp"

#include <cstddef>
#include <expected>
#include <vector>

namespace VXml::Legacy {

/// The first file version whose wave tables hold waves of differing lengths (sample count
/// first on each line); older versions hold one wave per row, all of `wave-size` samples.
inline constexpr unsigned VARIABLE_WAVES_SINCE = 4;

/// The `wave-size` attribute of an older wave table.
std::expected<std::size_t, velmar::ErrorObject> readPathWaveSize(const tinyxml2::XMLElement* table);

/// Reads an older wave table of sync path `path`: exactly `rows` lines of `wave-size` samples,
/// line r being the wave of row r.
std::expected<std::vector<std::vector<double>>, velmar::ErrorObject> parseFixedSizeWaveTable(
    const tinyxml2::XMLElement* table, std::size_t path, std::size_t rows);

}  // namespace VXml::Legacy
