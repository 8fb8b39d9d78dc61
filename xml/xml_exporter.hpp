#pragma once

#include "json_common/logging/error_object.hpp"
#include "xml/file_info.hpp"
#include "xml/xml_serializable.hpp"

#include <expected>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace VXml {

/// Writes XML text and standalone measurement files, always in XmlFormatVersion::CURRENT:
/// the writers have no version branches, so there is deliberately no way to stamp an older
/// version. Options belong to the instance. Single-threaded.
class VXmlExporter {
public:
    VXmlExporter() = default;
    explicit VXmlExporter(ExportOptions options) : options_(std::move(options)) {}

    const ExportOptions& getOptions() const { return options_; }
    void setOptions(ExportOptions options) { options_ = std::move(options); }
    const std::string& getGenerator() const { return options_.generator; }
    void setGenerator(std::string generator) { options_.generator = std::move(generator); }
    const std::string& getGeneratorVersion() const { return options_.generator_version; }
    void setGeneratorVersion(std::string version) { options_.generator_version = std::move(version); }
    bool producesCompactXml() const { return options_.compact_xml; }
    void setCompactXml(bool compact) { options_.compact_xml = compact; }
    unsigned getFileVersion() const { return XmlFormatVersion::CURRENT; }

    /// The object's element alone. Fails with the writer's error (a dataset that does not have
    /// its shape), or "out of memory" when the text cannot be printed.
    std::expected<std::string, velmar::ErrorObject> serialize(const XmlSerializable& object) const;
    /// Same; "nothing to serialize: the serializable is a null pointer" for a null pointer.
    std::expected<std::string, velmar::ErrorObject> serialize(const std::shared_ptr<XmlSerializable>& object) const;
    /// The whole standalone file: declaration, root, file info, payload.
    std::expected<std::string, velmar::ErrorObject> serializeAsFileStandalone(const XmlSerializable& object,
                                                                              std::string_view comment) const;
    std::expected<std::string, velmar::ErrorObject> serializeAsFileStandalone(
        const std::shared_ptr<XmlSerializable>& object, std::string_view comment) const;
    /// Writes the standalone file atomically (writeFileAtomically), creating missing parent
    /// directories. NONE on success.
    velmar::ErrorObject saveAsFileStandalone(const XmlSerializable& object, const std::filesystem::path& path,
                                             std::string_view comment) const;
    velmar::ErrorObject saveAsFileStandalone(const std::shared_ptr<XmlSerializable>& object,
                                             const std::filesystem::path& path, std::string_view comment) const;

    /// Builds the file structure in `document` around `payload` (created in that document):
    /// the declaration, a root named as the payload, the file info, then the payload.
    void wrapXmlForStandalone(tinyxml2::XMLDocument& document, tinyxml2::XMLElement* payload,
                              std::string_view comment) const;
    /// The local time as "YYYY-MM-DDTHH:MM:SS". Throws std::runtime_error "could not convert
    /// calendar time to local time" when the conversion fails.
    static std::string getCurrentTimeString();

private:
    ExportOptions options_;
};

}  // namespace VXml
