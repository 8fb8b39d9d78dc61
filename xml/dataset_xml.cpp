#include "xml/dataset_xml.hpp"

#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"
#include "xml/detail/xml_elements.hpp"

#include <boost/json.hpp>

#include <exception>
#include <memory>

namespace VXml {

using namespace detail;
using velmar::DatasetInfo;

namespace {

std::expected<velmar::JobInfo, ErrorObject> jobInfoFromElement(const tinyxml2::XMLElement* element) {
    boost::system::error_code ec;
    const auto value = boost::json::parse(elementText(element), ec);
    if (ec) return std::unexpected(contentError(messages::JOB_INFO_UNREADABLE, elementName(element), ec.message()));
    if (!value.is_object()) {
        return std::unexpected(contentError(messages::JOB_INFO_UNREADABLE, elementName(element), "not an object"));
    }
    // The job information reader throws when a parameter object does not match its record.
    try {
        return velmar::jobInfoFromJson(value.get_object());
    } catch (const std::exception& e) {
        return std::unexpected(contentError(messages::JOB_INFO_UNREADABLE, elementName(element), e.what()));
    }
}

}  // namespace

void appendSectionsElement(tinyxml2::XMLElement* parent, const std::vector<DatasetInfo>& datasets) {
    auto* sections = appendChild(parent, names::SECTIONS);
    for (const auto& info : datasets) {
        auto* section = appendChild(sections, names::SECTION);
        setStringAttribute(section, "type", info.type);
        setStringAttribute(section, "job-type", info.job_type);
        setStringAttribute(section, "job-type-short", info.job_type_short);
        setStringAttribute(section, "length", std::to_string(info.length));
        setDoubleAttribute(section, "time-start", info.start_time);
        auto* jobInfo = appendChild(section, names::JOB_INFO);
        jobInfo->SetText(boost::json::serialize(velmar::jobInfoToJson(info.job_info)).c_str());
    }
}

std::expected<std::vector<DatasetInfo>, ErrorObject> datasetInfoVectorFromSection(const tinyxml2::XMLElement* sections,
                                                                                   DeserializationContext& /*context*/) {
    std::vector<DatasetInfo> out;
    for (const auto* section = sections->FirstChildElement(names::SECTION); section != nullptr;
         section = section->NextSiblingElement(names::SECTION)) {
        DatasetInfo info;
        for (auto [name, target] : {std::pair{"type", &info.type}, std::pair{"job-type", &info.job_type},
                                    std::pair{"job-type-short", &info.job_type_short}}) {
            auto text = requireAttribute(section, name);
            if (!text) return std::unexpected(text.error());
            *target = *text;
        }
        auto length = numberAttribute<std::size_t>(section, "length");
        if (!length) return std::unexpected(length.error());
        info.length = *length;
        auto start = numberAttribute<double>(section, "time-start");
        if (!start) return std::unexpected(start.error());
        info.start_time = *start;
        auto jobInfoElement = requireChild(section, names::JOB_INFO);
        if (!jobInfoElement) return std::unexpected(jobInfoElement.error());
        auto jobInfo = jobInfoFromElement(*jobInfoElement);
        if (!jobInfo) return std::unexpected(jobInfo.error());
        info.job_info = std::move(*jobInfo);
        out.push_back(std::move(info));
    }
    return out;
}

void appendXmlColumnElements(tinyxml2::XMLElement* parent, const std::vector<velmar::ColumnHeader>& columns,
                             const std::string* groupUrn) {
    for (const auto& column : columns) {
        auto* element = appendChild(parent, names::COLUMN);
        setStringAttribute(element, "urn", groupUrn != nullptr ? *groupUrn : column.urn);
        setStringAttribute(element, "name", column.dimension);
        element->SetAttribute("type", "double");
        setStringAttribute(element, "unit", column.unit);
        if (groupUrn != nullptr && !column.urn.empty()) {
            setStringAttribute(element, "column-urn", column.urn);
        }
    }
}

tinyxml2::XMLElement* appendColumnClassElement(tinyxml2::XMLElement* configuration, std::string_view type,
                                               std::string_view urn, std::size_t columnCount) {
    auto* element = appendChild(configuration, names::COLUMN_CLASS);
    setStringAttribute(element, "type", type);
    setStringAttribute(element, "urn", urn);
    setStringAttribute(element, "columns", std::to_string(columnCount));
    return element;
}

void appendPolynomialElement(tinyxml2::XMLElement* parent, const char* name, const velmar::UserPolynomial& polynomial) {
    auto* element = appendChild(parent, name);
    for (const double coefficient : polynomial.coefficients) {
        std::string text;
        appendDouble(text, coefficient);
        appendChild(element, names::COEFFICIENT)->SetText(text.c_str());
    }
}

std::expected<std::optional<velmar::UserPolynomial>, ErrorObject> readPolynomialChildElement(
    const tinyxml2::XMLElement* parent, const char* name) {
    const auto* element = parent->FirstChildElement(name);
    if (element == nullptr) return std::optional<velmar::UserPolynomial>{};
    velmar::UserPolynomial polynomial;
    polynomial.coefficients.clear();
    for (const auto* coefficient = element->FirstChildElement(names::COEFFICIENT); coefficient != nullptr;
         coefficient = coefficient->NextSiblingElement(names::COEFFICIENT)) {
        double value = 0.0;
        if (!CsvParser::parseNumber(elementText(coefficient), value)) {
            return std::unexpected(contentError(messages::ATTRIBUTE_NOT_A_NUMBER, name, names::COEFFICIENT,
                                                elementText(coefficient)));
        }
        polynomial.coefficients.push_back(value);
    }
    return std::optional<velmar::UserPolynomial>(std::move(polynomial));
}

}  // namespace VXml

namespace velmar {

using namespace VXml::detail;
namespace names = VXml::names;
namespace messages = VXml::messages;

void DcDataset::acceptSerializer(VXml::XmlSerializer& serializer) const {
    for (const auto& track : tracks_) {
        if (track.size() != getRowCount()) {
            serializer.setError(contentError(messages::DC_TABLE_MISMATCH, header_.size(), getRowCount()));
            return;
        }
    }
    auto* element = serializer.document().NewElement(names::DATASET);
    element->SetAttribute("type", "DC");
    setStringAttribute(element, "job-type-short", jobTypeShort_);
    setStringAttribute(element, "job-type", jobType_);
    VXml::appendXmlColumnElements(appendChild(element, names::DATA_STRUCTURE), header_, nullptr);
    VXml::appendSectionsElement(element, getIncludedDatasets());
    auto* csv = appendChild(element, names::CSV);
    csv->SetAttribute("type", "data");
    csv->SetText(VXml::writeDcTable(*this).c_str());
    serializer.setProduced(element);
}

std::expected<DcDataset, ErrorObject> DcDataset::buildFromXmlElement(const tinyxml2::XMLElement* element,
                                                                     VXml::DeserializationContext& context) {
    const auto child = [&](const char* name) -> std::expected<const tinyxml2::XMLElement*, ErrorObject> {
        if (const auto* found = element->FirstChildElement(name)) return found;
        return std::unexpected(contentError(messages::DC_CHILD_MISSING, name));
    };
    auto structure = child(names::DATA_STRUCTURE);
    if (!structure) return std::unexpected(structure.error());
    std::vector<ColumnHeader> header;
    for (const auto* column = (*structure)->FirstChildElement(names::COLUMN); column != nullptr;
         column = column->NextSiblingElement(names::COLUMN)) {
        auto name = requireAttribute(column, "name");
        if (!name) return std::unexpected(name.error());
        auto unit = requireAttribute(column, "unit");
        if (!unit) return std::unexpected(unit.error());
        auto urn = requireAttribute(column, "urn");
        if (!urn) return std::unexpected(urn.error());
        header.emplace_back(std::string(*name), std::string(*unit), std::string(*urn));
    }
    if (header.empty()) return std::unexpected(contentError(messages::DC_NO_COLUMNS, names::COLUMN, names::DATA_STRUCTURE));
    auto sectionsElement = child(names::SECTIONS);
    if (!sectionsElement) return std::unexpected(sectionsElement.error());
    auto sections = VXml::datasetInfoVectorFromSection(*sectionsElement, context);
    if (!sections) return std::unexpected(sections.error());
    auto csv = child(names::CSV);
    if (!csv) return std::unexpected(csv.error());
    const std::string_view text = elementText(*csv);
    if (text.find_first_not_of(" \t\r\n") == std::string_view::npos) {
        return std::unexpected(contentError(messages::DC_TABLE_EMPTY, names::CSV));
    }
    VXml::CsvParser parser(text);
    // A single section describes the dataset itself, so its length is the row count.
    const bool rowsDeclared = sections->size() == 1;
    const std::size_t declaredRows = rowsDeclared ? sections->front().length : 0;
    if (!parser.parse() || parser.columnCount() != header.size() || (rowsDeclared && parser.rowCount() != declaredRows)) {
        return std::unexpected(contentError(messages::DC_TABLE_MISMATCH, header.size(),
                                            rowsDeclared ? declaredRows : parser.rowCount()));
    }
    const char* jobType = element->Attribute("job-type");
    const char* jobTypeShort = element->Attribute("job-type-short");
    JobInfo jobInfo = sections->empty() ? JobInfo{} : sections->front().job_info;
    DcDataset dataset(jobType != nullptr ? jobType : "", jobTypeShort != nullptr ? jobTypeShort : "", std::move(header),
                      std::move(parser.columns()), std::move(jobInfo));
    // A single section describes the dataset itself and is derived from it; several are the
    // history of joined results.
    if (sections->size() > 1) dataset.setIncludedDatasets(std::move(*sections));
    return dataset;
}

}  // namespace velmar

namespace VXml {

std::expected<std::shared_ptr<velmar::DataSet>, ErrorObject> XmlDeserializer<velmar::DataSet>::build(
    const tinyxml2::XMLElement* element, DeserializationContext& context) {
    const char* type = element->Attribute("type");
    const std::string_view kind = type != nullptr ? type : "";
    if (kind == "DC") {
        auto dataset = velmar::DcDataset::buildFromXmlElement(element, context);
        if (!dataset) return std::unexpected(dataset.error());
        return std::make_shared<velmar::DcDataset>(std::move(*dataset));
    }
    if (kind == "AC") {
        auto dataset = velmar::EisDataset::buildFromXmlElement(element, context);
        if (!dataset) return std::unexpected(dataset.error());
        return std::make_shared<velmar::EisDataset>(std::move(*dataset));
    }
    return std::unexpected(contentError(messages::DATASET_TYPE_UNKNOWN, kind));
}

}  // namespace VXml
