#pragma once

// Element and attribute helpers of the XML readers and writers. Included by xml/*.cpp only
// (it includes tinyxml2).

#include "json_common/logging/error_object.hpp"
#include "xml/csv.hpp"
#include "xml/xml_messages.hpp"

#include <tinyxml2.h>

#include <charconv>
#include <cstdint>
#include <expected>
#include <string>
#include <string_view>
#include <type_traits>

namespace VXml::detail {

using velmar::ErrorCodeEnum;
using velmar::ErrorObject;

/// A content error (RESOURCE_CONTENT_INVALID) of the file being read.
template <class... Args>
ErrorObject contentError(std::string_view format, Args&&... args) {
    return ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, format, std::forward<Args>(args)...);
}

/// A copy of the error with its formatted message behind a context message whose last
/// placeholder receives it ("could not deserialize <{0}>: {1}").
template <class... Args>
ErrorObject wrapError(const ErrorObject& inner, std::string_view format, Args&&... args) {
    return ErrorObject(inner.code, format, std::forward<Args>(args)..., inner.getMessageFormatted());
}

inline std::string_view elementName(const tinyxml2::XMLElement* element) {
    return element->Name() != nullptr ? element->Name() : "";
}

/// The first child of that name, or the CHILD_MISSING error.
inline std::expected<const tinyxml2::XMLElement*, ErrorObject> requireChild(const tinyxml2::XMLElement* parent,
                                                                            const char* child) {
    if (const auto* found = parent->FirstChildElement(child)) return found;
    return std::unexpected(contentError(messages::CHILD_MISSING, elementName(parent), child));
}

inline std::expected<std::string_view, ErrorObject> requireAttribute(const tinyxml2::XMLElement* element,
                                                                     const char* name) {
    if (const char* value = element->Attribute(name)) return std::string_view(value);
    return std::unexpected(contentError(messages::ATTRIBUTE_MISSING, elementName(element), name));
}

/// A number attribute converted whole (doubles in general notation, "nan" and "inf" included;
/// integers in decimal).
template <class T>
std::expected<T, ErrorObject> numberAttribute(const tinyxml2::XMLElement* element, const char* name) {
    auto text = requireAttribute(element, name);
    if (!text) return std::unexpected(text.error());
    T value{};
    bool ok = false;
    if constexpr (std::is_floating_point_v<T>) {
        double parsed = 0.0;
        ok = CsvParser::parseNumber(*text, parsed);
        value = static_cast<T>(parsed);
    } else {
        const auto result = std::from_chars(text->data(), text->data() + text->size(), value);
        ok = !text->empty() && result.ec == std::errc{} && result.ptr == text->data() + text->size();
    }
    if (!ok) return std::unexpected(contentError(messages::ATTRIBUTE_NOT_A_NUMBER, elementName(element), name, *text));
    return value;
}

inline void setDoubleAttribute(tinyxml2::XMLElement* element, const char* name, double value) {
    std::string text;
    appendDouble(text, value);
    element->SetAttribute(name, text.c_str());
}

inline void setStringAttribute(tinyxml2::XMLElement* element, const char* name, std::string_view value) {
    element->SetAttribute(name, std::string(value).c_str());
}

/// A new child element of that name, appended to the parent.
inline tinyxml2::XMLElement* appendChild(tinyxml2::XMLElement* parent, const char* name) {
    auto* child = parent->GetDocument()->NewElement(name);
    parent->InsertEndChild(child);
    return child;
}

/// The element's text ("" when it has none).
inline std::string_view elementText(const tinyxml2::XMLElement* element) {
    const char* text = element->GetText();
    return text != nullptr ? std::string_view(text) : std::string_view();
}

}  // namespace VXml::detail
