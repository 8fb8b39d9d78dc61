// The standalone file: its frame, the file info, the exporter and the importer.

#include "velmar_link_json/jobs/common/dataset.hpp"
#include "xml/dataset_xml.hpp"
#include "xml/detail/xml_elements.hpp"
#include "xml/file_io.hpp"
#include "xml/xml_exporter.hpp"
#include "xml/xml_importer.hpp"

#include <fmt/format.h>

#include <ctime>
#include <new>
#include <stdexcept>

namespace VXml {

using namespace detail;

namespace {

/// The maker's name as the format's name writes it.
constexpr std::string_view MAKER = "Velmar";
constexpr std::string_view FILE_INFO_CLOSING_TAG = "</velmar-fileinfo>";

constexpr const char* FILE_INFO_FIELDS[] = {"type", "file-version", "creation-timestamp", "generator",
                                            "generator-version", "comment"};

ErrorObject outOfMemory() { return ErrorObject(ErrorCodeEnum::OUT_OF_MEMORY, messages::OUT_OF_MEMORY); }
ErrorObject nullSerializable() {
    return ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, messages::NULL_SERIALIZABLE);
}

/// Parses the text; the parser's failure as "malformed XML: ..." and an empty document as
/// "document has no root element".
ErrorObject parseDocument(tinyxml2::XMLDocument& document, std::string_view text) {
    const auto result = document.Parse(text.data(), text.size());
    if (result == tinyxml2::XML_ERROR_EMPTY_DOCUMENT) return contentError(messages::NO_ROOT);
    if (result != tinyxml2::XML_SUCCESS) {
        const char* reason = document.ErrorStr();
        if (reason == nullptr || *reason == '\0') return contentError(messages::MALFORMED_XML);
        return contentError(messages::MALFORMED_XML_WITH_REASON, reason);
    }
    if (document.RootElement() == nullptr) return contentError(messages::NO_ROOT);
    return {};
}

std::expected<std::string, ErrorObject> print(tinyxml2::XMLDocument& document, bool compact) {
    try {
        tinyxml2::XMLPrinter printer(nullptr, compact);
        document.Print(&printer);
        return std::string(printer.CStr(), static_cast<std::size_t>(printer.CStrSize() - 1));
    } catch (const std::bad_alloc&) {
        return std::unexpected(outOfMemory());
    }
}

/// Builds the payload element of the object in `document`; the writer's error otherwise.
std::expected<tinyxml2::XMLElement*, ErrorObject> produce(const XmlSerializable& object,
                                                          tinyxml2::XMLDocument& document) {
    XmlSerializer serializer(document);
    try {
        object.acceptSerializer(serializer);
    } catch (const std::bad_alloc&) {
        return std::unexpected(outOfMemory());
    }
    if (serializer.error()) return std::unexpected(serializer.error());
    if (serializer.produced() == nullptr) return std::unexpected(nullSerializable());
    return serializer.produced();
}

std::expected<std::shared_ptr<XmlSerializable>, ErrorObject> buildPayload(const tinyxml2::XMLElement* payload,
                                                                          DeserializationContext& context) {
    const std::string_view type = elementName(payload);
    if (type == Measurement::XML_ELEMENT_NAME) {
        auto measurement = XmlDeserializer<Measurement>::build(payload, context);
        if (!measurement) return std::unexpected(measurement.error());
        return std::make_shared<Measurement>(std::move(*measurement));
    }
    if (type == names::DATASET) {
        auto dataset = XmlDeserializer<velmar::DataSet>::build(payload, context);
        if (!dataset) return std::unexpected(dataset.error());
        return std::shared_ptr<XmlSerializable>(std::move(*dataset));
    }
    return std::unexpected(contentError(messages::NO_PAYLOAD, type));
}

}  // namespace

std::string XmlFormatVersion::supported_range() { return fmt::format("{}..{}", MINIMUM_SUPPORTED, CURRENT); }

void VelmarFileInfo::acceptSerializer(XmlSerializer& serializer) const {
    auto* element = serializer.document().NewElement(XML_ELEMENT_NAME);
    const std::string version = std::to_string(file_version);
    const std::string* values[] = {&type, &version, &creation_timestamp, &generator, &generator_version, &comment};
    for (std::size_t i = 0; i < std::size(FILE_INFO_FIELDS); ++i) {
        appendChild(element, FILE_INFO_FIELDS[i])->SetText(values[i]->c_str());
    }
    serializer.setProduced(element);
}

std::expected<VelmarFileInfo, ErrorObject> VelmarFileInfo::buildFromXmlElement(const tinyxml2::XMLElement* element) {
    VelmarFileInfo info;
    std::string version;
    std::string* targets[] = {&info.type, &version, &info.creation_timestamp, &info.generator, &info.generator_version,
                              &info.comment};
    for (std::size_t i = 0; i < std::size(FILE_INFO_FIELDS); ++i) {
        const auto* child = element->FirstChildElement(FILE_INFO_FIELDS[i]);
        if (child == nullptr) {
            if (i < 2) return std::unexpected(contentError(messages::CHILD_MISSING, XML_ELEMENT_NAME, FILE_INFO_FIELDS[i]));
            continue;
        }
        *targets[i] = elementText(child);
    }
    unsigned value = 0;
    const auto result = std::from_chars(version.data(), version.data() + version.size(), value);
    const bool whole = !version.empty() && result.ec == std::errc{} && result.ptr == version.data() + version.size();
    info.file_version = whole ? value : INVALID_FILE_VERSION;
    return info;
}

std::expected<std::string, ErrorObject> VXmlExporter::serialize(const XmlSerializable& object) const {
    tinyxml2::XMLDocument document;
    auto payload = produce(object, document);
    if (!payload) return std::unexpected(payload.error());
    document.InsertEndChild(*payload);
    return print(document, options_.compact_xml);
}

std::expected<std::string, ErrorObject> VXmlExporter::serialize(const std::shared_ptr<XmlSerializable>& object) const {
    if (!object) return std::unexpected(nullSerializable());
    return serialize(*object);
}

std::expected<std::string, ErrorObject> VXmlExporter::serializeAsFileStandalone(const XmlSerializable& object,
                                                                                std::string_view comment) const {
    tinyxml2::XMLDocument document;
    auto payload = produce(object, document);
    if (!payload) return std::unexpected(payload.error());
    try {
        wrapXmlForStandalone(document, *payload, comment);
    } catch (const std::runtime_error& e) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::UNEXPECTED_EXCEPTION, e.what()));
    }
    return print(document, options_.compact_xml);
}

std::expected<std::string, ErrorObject> VXmlExporter::serializeAsFileStandalone(
    const std::shared_ptr<XmlSerializable>& object, std::string_view comment) const {
    if (!object) return std::unexpected(nullSerializable());
    return serializeAsFileStandalone(*object, comment);
}

ErrorObject VXmlExporter::saveAsFileStandalone(const XmlSerializable& object, const std::filesystem::path& path,
                                               std::string_view comment) const {
    auto text = serializeAsFileStandalone(object, comment);
    if (!text) return text.error();
    return writeFileAtomically(path, *text);
}

ErrorObject VXmlExporter::saveAsFileStandalone(const std::shared_ptr<XmlSerializable>& object,
                                               const std::filesystem::path& path, std::string_view comment) const {
    if (!object) return nullSerializable();
    return saveAsFileStandalone(*object, path, comment);
}

void VXmlExporter::wrapXmlForStandalone(tinyxml2::XMLDocument& document, tinyxml2::XMLElement* payload,
                                        std::string_view comment) const {
    document.InsertFirstChild(document.NewDeclaration(R"(xml version="1.0" encoding="utf-8" standalone="yes")"));
    auto* root = document.NewElement(payload->Name());
    document.InsertEndChild(root);
    VelmarFileInfo info;
    info.type = payload->Name();
    info.file_version = XmlFormatVersion::CURRENT;
    info.creation_timestamp = getCurrentTimeString();
    info.generator = options_.generator;
    info.generator_version = options_.generator_version;
    info.comment = comment;
    XmlSerializer serializer(document);
    info.acceptSerializer(serializer);
    root->InsertEndChild(serializer.produced());
    root->InsertEndChild(payload);
}

std::string VXmlExporter::getCurrentTimeString() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    if (localtime_r(&now, &local) == nullptr) throw std::runtime_error(std::string(messages::LOCAL_TIME_FAILED));
    char buffer[32];
    const std::size_t length = std::strftime(buffer, sizeof buffer, "%Y-%m-%dT%H:%M:%S", &local);
    return std::string(buffer, length);
}

ErrorObject VXmlImporter::makeTypeMismatchError() { return contentError(messages::TYPE_MISMATCH); }

std::expected<ImportedFile, ErrorObject> VXmlImporter::importFromFile(const std::filesystem::path& path) const {
    auto text = readWholeFile(path);
    if (!text) return std::unexpected(text.error());
    tinyxml2::XMLDocument document;
    if (auto error = parseDocument(document, *text)) return std::unexpected(std::move(error));
    // The document holds its own copy of the text: the file's is not needed while the payload
    // is built, which keeps the peak memory of a large import lower.
    std::string().swap(*text);
    return importDocument(document);
}

std::expected<ImportedFile, ErrorObject> VXmlImporter::importFromMemory(std::string_view text) const {
    return importFrom(text, "<memory>");
}

std::expected<ImportedFile, ErrorObject> VXmlImporter::importFrom(std::string_view text,
                                                                  std::string_view /*sourceName*/) const {
    tinyxml2::XMLDocument document;
    if (auto error = parseDocument(document, text)) return std::unexpected(std::move(error));
    return importDocument(document);
}

std::expected<ImportedFile, ErrorObject> VXmlImporter::importDocument(const tinyxml2::XMLDocument& document) const {
    const auto* root = document.RootElement();
    const auto* infoElement = root->FirstChildElement(VelmarFileInfo::XML_ELEMENT_NAME);
    if (infoElement == nullptr) {
        return std::unexpected(contentError(messages::NO_FILE_INFO, VelmarFileInfo::XML_ELEMENT_NAME, MAKER));
    }
    auto info = VelmarFileInfo::buildFromXmlElement(infoElement);
    if (!info) return std::unexpected(info.error());

    DeserializationContext context;
    context.ignore_protocol_version_mismatch = ignoreProtocolVersionMismatch_;
    context.file_version = info->file_version;
    if (info->file_version == VelmarFileInfo::INVALID_FILE_VERSION ||
        info->file_version < XmlFormatVersion::MINIMUM_SUPPORTED) {
        const std::string shown = info->file_version == VelmarFileInfo::INVALID_FILE_VERSION
                                      ? std::string(elementText(infoElement->FirstChildElement("file-version")))
                                      : std::to_string(info->file_version);
        return std::unexpected(ErrorObject(ErrorCodeEnum::FILE_VERSION_NOT_SUPPORTED, messages::FILE_VERSION_UNSUPPORTED,
                                           shown, XmlFormatVersion::supported_range()));
    }
    if (info->file_version > XmlFormatVersion::CURRENT) {
        if (!ignoreProtocolVersionMismatch_) {
            return std::unexpected(
                ErrorObject(ErrorCodeEnum::PROTOCOL_VERSION_MISMATCH, messages::PROTOCOL_VERSION_MISMATCH));
        }
        // Read as the current layout, the newest one this library knows.
        context.file_version = XmlFormatVersion::CURRENT;
    }
    if (elementName(root) != info->type) {
        return std::unexpected(contentError(messages::ROOT_TYPE_MISMATCH, elementName(root), info->type));
    }
    const auto* payload = root->FirstChildElement(info->type.c_str());
    if (payload == nullptr || info->type == VelmarFileInfo::XML_ELEMENT_NAME) {
        return std::unexpected(contentError(messages::NO_PAYLOAD, info->type));
    }
    auto object = buildPayload(payload, context);
    if (!object) return std::unexpected(wrapError(object.error(), messages::PAYLOAD_UNREADABLE, info->type));
    return ImportedFile{std::move(*object), std::move(*info)};
}

std::expected<std::shared_ptr<XmlSerializable>, ErrorObject> VXmlImporter::deserialize(std::string_view text) const {
    tinyxml2::XMLDocument document;
    if (auto error = parseDocument(document, text)) return std::unexpected(std::move(error));
    DeserializationContext context;
    context.file_version = XmlFormatVersion::CURRENT;
    context.ignore_protocol_version_mismatch = ignoreProtocolVersionMismatch_;
    const auto* root = document.RootElement();
    auto object = buildPayload(root, context);
    if (!object) return std::unexpected(wrapError(object.error(), messages::PAYLOAD_UNREADABLE, elementName(root)));
    return object;
}

std::expected<VelmarFileInfo, ErrorObject> VXmlImporter::readFileInfo(const std::filesystem::path& path) const {
    auto prefix = readFilePrefix(path, FILE_INFO_WINDOW, FILE_INFO_CLOSING_TAG);
    if (!prefix) return std::unexpected(prefix.error());
    return readFileInfoFromMemory(*prefix);
}

std::expected<VelmarFileInfo, ErrorObject> VXmlImporter::readFileInfoFromMemory(std::string_view text) const {
    text = text.substr(0, FILE_INFO_WINDOW);
    const auto notFound = [] {
        return contentError(messages::NO_FILE_INFO_WITHIN, VelmarFileInfo::XML_ELEMENT_NAME, FILE_INFO_WINDOW, MAKER);
    };
    // The opening tag: the name followed by the end of the tag or by attributes.
    constexpr std::string_view OPENING = "<velmar-fileinfo";
    std::size_t start = text.find(OPENING);
    while (start != std::string_view::npos) {
        const std::size_t after = start + OPENING.size();
        if (after < text.size() && (text[after] == '>' || text[after] == ' ' || text[after] == '\t' ||
                                    text[after] == '\r' || text[after] == '\n')) {
            break;
        }
        start = text.find(OPENING, after);
    }
    if (start == std::string_view::npos) return std::unexpected(notFound());
    const std::size_t end = text.find(FILE_INFO_CLOSING_TAG, start);
    if (end == std::string_view::npos) return std::unexpected(notFound());
    tinyxml2::XMLDocument document;
    if (auto error = parseDocument(document, text.substr(start, end + FILE_INFO_CLOSING_TAG.size() - start))) {
        return std::unexpected(std::move(error));
    }
    return VelmarFileInfo::buildFromXmlElement(document.RootElement());
}

}  // namespace VXml
