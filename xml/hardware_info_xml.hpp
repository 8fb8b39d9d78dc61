#pragma once

#include "json_common/configuration/hardware_info.hpp"
#include "json_common/logging/error_object.hpp"
#include "xml/xml_serializable.hpp"

#include <expected>

namespace VXml {

inline constexpr const char* HARDWARE_INFO_ELEMENT_NAME = "hardware-info";

/// The `hardware-info` element of the device tree, created in `document` (not linked).
tinyxml2::XMLElement* hardwareInfoToXmlNode(const velmar::HardwareInfo& info, tinyxml2::XMLDocument& document);

/// Reads a `hardware-info` element; RESOURCE_CONTENT_INVALID naming the first missing or
/// malformed attribute or child.
std::expected<velmar::HardwareInfo, velmar::ErrorObject> hardwareInfoFromXmlNode(const tinyxml2::XMLElement* element);

}  // namespace VXml
