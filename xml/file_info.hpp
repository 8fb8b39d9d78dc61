#pragma once

#include "json_common/logging/error_object.hpp"
#include "xml/xml_serializable.hpp"

#include <cstdint>
#include <expected>
#include <memory>
#include <string>

namespace VXml {

class Measurement;

/// The range of file format versions: CURRENT is always written; every version from
/// MINIMUM_SUPPORTED up is read, older ones with their own layout (docs/file_formats.md).
struct XmlFormatVersion {
    static constexpr unsigned CURRENT = 4;
    static constexpr unsigned MINIMUM_SUPPORTED = 3;

    /// True when a file's `file-version` lies in MINIMUM_SUPPORTED..CURRENT.
    static constexpr bool is_supported(std::uint64_t rawVersion) {
        return rawVersion >= MINIMUM_SUPPORTED && rawVersion <= CURRENT;
    }
    /// "3..4", for messages.
    static std::string supported_range();
};

/// The `velmar-fileinfo` block at the start of every standalone file.
class VelmarFileInfo : public XmlSerializable {
public:
    static constexpr const char* XML_ELEMENT_NAME = "velmar-fileinfo";
    static constexpr unsigned INVALID_FILE_VERSION = DeserializationContext::INVALID_FILE_VERSION;

    /// The name of the payload element.
    std::string type;
    /// INVALID_FILE_VERSION when the file's text is no unsigned number.
    unsigned file_version = INVALID_FILE_VERSION;
    std::string creation_timestamp;
    std::string generator;
    std::string generator_version;
    std::string comment;

    void acceptSerializer(XmlSerializer& serializer) const override;
    /// Reads the child elements by name; a missing `type` or `file-version` fails
    /// (RESOURCE_CONTENT_INVALID), the others default to empty texts.
    static std::expected<VelmarFileInfo, velmar::ErrorObject> buildFromXmlElement(const tinyxml2::XMLElement* element);
};

/// What an import gives: the payload (a Measurement or a DataSet) and the file info of the
/// file it came from.
struct ImportedFile {
    std::shared_ptr<XmlSerializable> object;
    VelmarFileInfo file_info;

    /// The payload as that type, or null when it is another.
    template <class T>
    std::shared_ptr<T> as() const {
        return std::dynamic_pointer_cast<T>(object);
    }
};

/// What the exporter writes into the file info, and how it formats the text. Belongs to one
/// exporter; there is no process-wide state.
struct ExportOptions {
    std::string generator = "lib_velmar_link";
    std::string generator_version = "0.1";
    /// Omit indentation and line breaks.
    bool compact_xml = false;
};

}  // namespace VXml
