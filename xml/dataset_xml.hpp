#pragma once

// Pieces of the `dataset` elements shared by the DC and the impedance form: the `sections`
// list of included job results, column elements, column classes and polynomials.

#include "json_common/configuration/hardware_settings.hpp"
#include "json_common/logging/error_object.hpp"
#include "json_common/protocol/column_header.hpp"
#include "velmar_link_json/jobs/common/dataset.hpp"
#include "xml/xml_serializable.hpp"

#include <expected>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace VXml {

/// Element and attribute names of the dataset elements.
namespace names {
inline constexpr const char* DATASET = "dataset";
inline constexpr const char* DATA_STRUCTURE = "data-structure";
inline constexpr const char* COLUMN = "column";
inline constexpr const char* CONFIGURATION = "configuration";
inline constexpr const char* COLUMN_CLASS = "column-class";
inline constexpr const char* SECTIONS = "sections";
inline constexpr const char* SECTION = "section";
inline constexpr const char* JOB_INFO = "job-info";
inline constexpr const char* CSV = "csv";
inline constexpr const char* POLYNOMIAL = "polynomial";
inline constexpr const char* POTENTIOSTATIC_POLYNOMIAL = "potentiostatic_polynomial";
inline constexpr const char* COEFFICIENT = "coefficient";
}  // namespace names

/// Appends `sections` with one `section` per included dataset (type, job types, length,
/// time-start, and the job information as JSON text in `job-info`).
void appendSectionsElement(tinyxml2::XMLElement* parent, const std::vector<velmar::DatasetInfo>& datasets);

/// Reads the `sections` element. RESOURCE_CONTENT_INVALID for a missing attribute or child, a
/// number that does not parse, or a `job-info` that is no job information object.
std::expected<std::vector<velmar::DatasetInfo>, velmar::ErrorObject> datasetInfoVectorFromSection(
    const tinyxml2::XMLElement* sections, DeserializationContext& context);

/// Appends one `column` element per column to `parent`: `urn` (the given group urn, or the
/// column's own urn when `groupUrn` is null), `name`, `type`="double", `unit`; a column whose
/// own urn differs from the group's keeps it in `column-urn`.
void appendXmlColumnElements(tinyxml2::XMLElement* parent, const std::vector<velmar::ColumnHeader>& columns,
                             const std::string* groupUrn);

/// Appends a `column-class` of that type and urn, with `columns` (the number of its columns);
/// the caller adds the type's own attributes.
tinyxml2::XMLElement* appendColumnClassElement(tinyxml2::XMLElement* configuration, std::string_view type,
                                               std::string_view urn, std::size_t columnCount);

/// Appends the polynomial as `name` with one `coefficient` child per coefficient.
void appendPolynomialElement(tinyxml2::XMLElement* parent, const char* name, const velmar::UserPolynomial& polynomial);

/// Reads the child polynomial of that name: nullopt when absent; an error for a coefficient
/// that is no number.
std::expected<std::optional<velmar::UserPolynomial>, velmar::ErrorObject> readPolynomialChildElement(
    const tinyxml2::XMLElement* parent, const char* name);

/// Reads a `dataset` element of the kind its `type` attribute names ("DC" or "AC").
template <>
struct XmlDeserializer<velmar::DataSet> {
    static std::expected<std::shared_ptr<velmar::DataSet>, velmar::ErrorObject> build(
        const tinyxml2::XMLElement* element, DeserializationContext& context);
};

}  // namespace VXml
