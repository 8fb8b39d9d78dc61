#include "xml/measurement.hpp"

#include "xml/dataset_xml.hpp"
#include "xml/detail/xml_elements.hpp"
#include "xml/hardware_info_xml.hpp"

namespace VXml {

using namespace detail;

Measurement::Measurement(std::shared_ptr<velmar::DataSet> dataset) { appendDataset(std::move(dataset)); }

Measurement::Measurement(velmar::HardwareInfo hardwareInfo, std::shared_ptr<velmar::DataSet> dataset)
    : hardwareInfo_(std::move(hardwareInfo)) {
    appendDataset(std::move(dataset));
}

void Measurement::appendDataset(std::shared_ptr<velmar::DataSet> dataset) {
    if (dataset) datasets_.push_back(std::move(dataset));
}

void Measurement::acceptSerializer(XmlSerializer& serializer) const {
    auto& document = serializer.document();
    auto* element = document.NewElement(XML_ELEMENT_NAME);
    if (hardwareInfo_) element->InsertEndChild(hardwareInfoToXmlNode(*hardwareInfo_, document));
    for (const auto& dataset : datasets_) {
        XmlSerializer inner(document);
        dataset->acceptSerializer(inner);
        if (inner.error()) {
            document.DeleteNode(element);
            serializer.setError(inner.error());
            return;
        }
        element->InsertEndChild(inner.produced());
    }
    serializer.setProduced(element);
}

std::expected<Measurement, ErrorObject> Measurement::buildFromXmlElement(const tinyxml2::XMLElement* element,
                                                                         DeserializationContext& context) {
    Measurement measurement;
    if (const auto* hardware = element->FirstChildElement(HARDWARE_INFO_ELEMENT_NAME)) {
        auto info = hardwareInfoFromXmlNode(hardware);
        if (!info) return std::unexpected(wrapError(info.error(), messages::HARDWARE_INFO_UNREADABLE, HARDWARE_INFO_ELEMENT_NAME));
        measurement.hardwareInfo_ = std::move(*info);
    }
    std::size_t index = 0;
    for (const auto* dataset = element->FirstChildElement(names::DATASET); dataset != nullptr;
         dataset = dataset->NextSiblingElement(names::DATASET), ++index) {
        auto built = XmlDeserializer<velmar::DataSet>::build(dataset, context);
        if (!built) return std::unexpected(wrapError(built.error(), messages::DATASET_UNREADABLE, names::DATASET, index));
        measurement.datasets_.push_back(std::move(*built));
    }
    return measurement;
}

}  // namespace VXml
