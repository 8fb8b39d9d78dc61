#pragma once

// Whole-file reads and atomic writes, with the file error codes of the measurement files.

#include "json_common/logging/error_object.hpp"

#include <cstddef>
#include <expected>
#include <filesystem>
#include <string>
#include <string_view>

namespace VXml {

/// The whole file. FILE_NOT_FOUND, FILE_COULD_NOT_BE_OPENED, FILE_COULD_NOT_BE_READ,
/// FILE_IS_EMPTY.
std::expected<std::string, velmar::ErrorObject> readWholeFile(const std::filesystem::path& path);

/// At most `limit` bytes from the start, read in blocks and ended early once `marker` has
/// been read. The same errors as readWholeFile.
std::expected<std::string, velmar::ErrorObject> readFilePrefix(const std::filesystem::path& path, std::size_t limit,
                                                               std::string_view marker);

/// Replaces the file's content atomically: missing parent directories are created, the text
/// goes to a temporary file in the same directory, which is flushed to the disk and renamed
/// over the target (then the directory is flushed). A crash or a full disk at any point leaves
/// either the old file or the new one, never a part. FILE_COULD_NOT_BE_OPENED ("could not open
/// the file for writing") or FILE_COULD_NOT_BE_WRITTEN ("an error occurred while writing the
/// file"); the temporary file is removed on failure.
velmar::ErrorObject writeFileAtomically(const std::filesystem::path& path, std::string_view content);

}  // namespace VXml
