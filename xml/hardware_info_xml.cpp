#include "xml/hardware_info_xml.hpp"

#include "xml/detail/described_xml.hpp"

namespace VXml {

tinyxml2::XMLElement* hardwareInfoToXmlNode(const velmar::HardwareInfo& info, tinyxml2::XMLDocument& document) {
    auto* element = document.NewElement(HARDWARE_INFO_ELEMENT_NAME);
    described_object_to_element(info, element);
    return element;
}

std::expected<velmar::HardwareInfo, velmar::ErrorObject> hardwareInfoFromXmlNode(const tinyxml2::XMLElement* element) {
    velmar::HardwareInfo info;
    if (auto error = described_object_from_element(element, info)) return std::unexpected(std::move(error));
    return info;
}

}  // namespace VXml
