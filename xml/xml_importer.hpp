#pragma once

#include "json_common/logging/error_object.hpp"
#include "xml/file_info.hpp"
#include "xml/measurement.hpp"

#include <cstddef>
#include <expected>
#include <filesystem>
#include <memory>
#include <string_view>

namespace VXml {

/// Reads standalone XML files and plain elements. Every failure is an ErrorObject; content
/// errors carry RESOURCE_CONTENT_INVALID. Files of an older supported version are read with
/// their own layout; older unsupported ones fail with FILE_VERSION_NOT_SUPPORTED; newer ones
/// with PROTOCOL_VERSION_MISMATCH unless the mismatch is ignored. Single-threaded.
class VXmlImporter {
public:
    /// How much of a file readFileInfo looks at.
    static constexpr std::size_t FILE_INFO_WINDOW = 65536;

    explicit VXmlImporter(bool ignoreProtocolVersionMismatch = false)
        : ignoreProtocolVersionMismatch_(ignoreProtocolVersionMismatch) {}

    void setIgnoreProtocolVersionMismatch(bool ignore) { ignoreProtocolVersionMismatch_ = ignore; }
    bool getIgnoreProtocolVersionMismatch() const { return ignoreProtocolVersionMismatch_; }

    /// The payload (Measurement or DataSet) with the file info. File errors of readWholeFile.
    std::expected<ImportedFile, velmar::ErrorObject> importFromFile(const std::filesystem::path& path) const;
    /// Same from text held in memory (source name "<memory>").
    std::expected<ImportedFile, velmar::ErrorObject> importFromMemory(std::string_view text) const;
    std::expected<ImportedFile, velmar::ErrorObject> importFrom(std::string_view text, std::string_view sourceName) const;

    /// Typed imports (T is Measurement, DcDataset or EisDataset): makeTypeMismatchError() when
    /// the file holds another payload.
    template <class T>
    std::expected<ImportedFile, velmar::ErrorObject> importFromFileAs(const std::filesystem::path& path) const {
        return requirePayload<T>(importFromFile(path));
    }
    template <class T>
    std::expected<ImportedFile, velmar::ErrorObject> importFromMemoryAs(std::string_view text) const {
        return requirePayload<T>(importFromMemory(text));
    }

    /// A plain element without the file frame (`velmar-measurement` or `dataset`), read as the
    /// current version.
    std::expected<std::shared_ptr<XmlSerializable>, velmar::ErrorObject> deserialize(std::string_view text) const;

    /// Only the file info, from at most the first FILE_INFO_WINDOW bytes; the version is not
    /// checked.
    std::expected<VelmarFileInfo, velmar::ErrorObject> readFileInfo(const std::filesystem::path& path) const;
    std::expected<VelmarFileInfo, velmar::ErrorObject> readFileInfoFromMemory(std::string_view text) const;

    /// "imported object type does not match the requested type" (RESOURCE_CONTENT_INVALID).
    static velmar::ErrorObject makeTypeMismatchError();

private:
    /// Steps 2 to 5 of an import, over a parsed document.
    std::expected<ImportedFile, velmar::ErrorObject> importDocument(const tinyxml2::XMLDocument& document) const;

    template <class T>
    static std::expected<ImportedFile, velmar::ErrorObject> requirePayload(
        std::expected<ImportedFile, velmar::ErrorObject>&& imported) {
        if (imported && !imported->as<T>()) return std::unexpected(makeTypeMismatchError());
        return std::move(imported);
    }

    bool ignoreProtocolVersionMismatch_ = false;
};

}  // namespace VXml
