#pragma once

#include "json_common/configuration/hardware_info.hpp"
#include "json_common/logging/error_object.hpp"
#include "velmar_link_json/jobs/common/dataset.hpp"
#include "xml/xml_serializable.hpp"

#include <expected>
#include <memory>
#include <optional>
#include <vector>

namespace VXml {

/// The usual payload of a measurement file: the device tree (optional) and any number of
/// datasets, in order. Single-threaded; datasets are shared, not copied.
class Measurement : public XmlSerializable {
public:
    static constexpr const char* XML_ELEMENT_NAME = "velmar-measurement";

    Measurement() = default;
    explicit Measurement(velmar::HardwareInfo hardwareInfo) : hardwareInfo_(std::move(hardwareInfo)) {}
    /// A null dataset is not added.
    explicit Measurement(std::shared_ptr<velmar::DataSet> dataset);
    Measurement(velmar::HardwareInfo hardwareInfo, std::shared_ptr<velmar::DataSet> dataset);

    /// Appends a dataset; a null pointer is ignored.
    void appendDataset(std::shared_ptr<velmar::DataSet> dataset);
    const std::vector<std::shared_ptr<velmar::DataSet>>& getDatasets() const { return datasets_; }
    void setHardwareInfo(std::optional<velmar::HardwareInfo> hardwareInfo) { hardwareInfo_ = std::move(hardwareInfo); }
    const std::optional<velmar::HardwareInfo>& getHardwareInfo() const { return hardwareInfo_; }

    /// `velmar-measurement` with `hardware-info` (when present), then one `dataset` per dataset.
    /// A dataset that cannot be written sets the serializer's error.
    void acceptSerializer(XmlSerializer& serializer) const override;
    /// Reads a `velmar-measurement` element: "<hardware-info> is present but could not be
    /// parsed" or "<dataset> #i could not be parsed", each with the reason.
    static std::expected<Measurement, velmar::ErrorObject> buildFromXmlElement(const tinyxml2::XMLElement* element,
                                                                               DeserializationContext& context);

private:
    std::optional<velmar::HardwareInfo> hardwareInfo_;
    std::vector<std::shared_ptr<velmar::DataSet>> datasets_;
};

template <>
struct XmlDeserializer<Measurement> {
    static std::expected<Measurement, velmar::ErrorObject> build(const tinyxml2::XMLElement* element,
                                                                 DeserializationContext& context) {
        return Measurement::buildFromXmlElement(element, context);
    }
};

}  // namespace VXml
