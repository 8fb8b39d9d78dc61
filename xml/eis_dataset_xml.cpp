// The XML form of the impedance dataset.

#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "xml/dataset_xml.hpp"
#include "xml/detail/xml_elements.hpp"
#include "xml/xml_legacy.hpp"

#include <algorithm>
#include <array>

namespace velmar {

using namespace VXml::detail;
namespace names = VXml::names;
namespace messages = VXml::messages;

namespace {

constexpr const char* PATH_CLASS = "path";
constexpr const char* IMPEDANCE_CLASS = "impedance";
constexpr const char* ASYNC_PATH_CLASS = "async_path";
constexpr const char* POTENTIOSTAT_CLASS = "potentiostat";
constexpr const char* WAVE_TABLE = "wave";

/// One column of the `data-structure` element.
struct DeclaredColumn {
    std::string urn;
    ColumnHeader header;
};

/// A column group in the order of the data table: where its header's columns go and the urn
/// and column count that its column class declares.
struct Group {
    std::vector<ColumnHeader>* columns;
    std::string urn;
    /// The class's `columns` attribute; absent in files that group by urn alone.
    std::optional<std::size_t> count;
};

std::expected<std::optional<std::size_t>, ErrorObject> columnCountOf(const tinyxml2::XMLElement* columnClass) {
    if (columnClass->Attribute("columns") == nullptr) return std::optional<std::size_t>{};
    auto count = numberAttribute<std::size_t>(columnClass, "columns");
    if (!count) return std::unexpected(count.error());
    return std::optional<std::size_t>(*count);
}

std::expected<std::string, ErrorObject> stringAttribute(const tinyxml2::XMLElement* element, const char* name) {
    auto text = requireAttribute(element, name);
    if (!text) return std::unexpected(text.error());
    return std::string(*text);
}

/// Reads the column classes into the group headers of `header`; `groups` receives the groups
/// in the order of the data table (paths, impedances, async paths, potentiostats).
ErrorObject readConfiguration(const tinyxml2::XMLElement* configuration, LiveDataHeaderEis& header,
                              std::vector<Group>& groups) {
    struct Pending {
        std::string urn;
        std::optional<std::size_t> count;
    };
    std::vector<Pending> paths, impedances, asyncPaths, potentiostats;
    for (const auto* element = configuration->FirstChildElement(names::COLUMN_CLASS); element != nullptr;
         element = element->NextSiblingElement(names::COLUMN_CLASS)) {
        auto type = stringAttribute(element, "type");
        if (!type) return type.error();
        auto urn = stringAttribute(element, "urn");
        if (!urn) return urn.error();
        auto count = columnCountOf(element);
        if (!count) return count.error();
        if (*type == PATH_CLASS || *type == ASYNC_PATH_CLASS) {
            auto name = stringAttribute(element, "name");
            if (!name) return name.error();
            auto polynomial = VXml::readPolynomialChildElement(element, names::POLYNOMIAL);
            if (!polynomial) return polynomial.error();
            auto& list = *type == PATH_CLASS ? header.paths : header.async_paths;
            list.emplace_back(std::move(*name), *urn, std::vector<ColumnHeader>{}, std::move(*polynomial));
            (*type == PATH_CLASS ? paths : asyncPaths).push_back({std::move(*urn), *count});
        } else if (*type == IMPEDANCE_CLASS) {
            auto numerator = stringAttribute(element, "numerator");
            if (!numerator) return numerator.error();
            auto denominator = stringAttribute(element, "denominator");
            if (!denominator) return denominator.error();
            const char* name = element->Attribute("impedance_name");
            header.impedances.emplace_back(std::move(*numerator), std::move(*denominator), std::vector<ColumnHeader>{},
                                           name != nullptr ? name : "");
            impedances.push_back({std::move(*urn), *count});
        } else if (*type == POTENTIOSTAT_CLASS) {
            PotentiostatDataHeader potentiostat(*urn, {});
            auto polynomial = VXml::readPolynomialChildElement(element, names::POLYNOMIAL);
            if (!polynomial) return polynomial.error();
            auto potentiostatic = VXml::readPolynomialChildElement(element, names::POTENTIOSTATIC_POLYNOMIAL);
            if (!potentiostatic) return potentiostatic.error();
            potentiostat.polynomial = std::move(*polynomial);
            potentiostat.potentiostatic_polynomial = std::move(*potentiostatic);
            header.potentiostats.push_back(std::move(potentiostat));
            potentiostats.push_back({std::move(*urn), *count});
        } else {
            return contentError(messages::AC_COLUMN_CLASS_UNKNOWN, *type);
        }
    }
    for (std::size_t i = 0; i < paths.size(); ++i) groups.push_back({&header.paths[i].columns, paths[i].urn, paths[i].count});
    for (std::size_t i = 0; i < impedances.size(); ++i) {
        groups.push_back({&header.impedances[i].columns, impedances[i].urn, impedances[i].count});
    }
    for (std::size_t i = 0; i < asyncPaths.size(); ++i) {
        groups.push_back({&header.async_paths[i].columns, asyncPaths[i].urn, asyncPaths[i].count});
    }
    for (std::size_t i = 0; i < potentiostats.size(); ++i) {
        groups.push_back({&header.potentiostats[i].columns, potentiostats[i].urn, potentiostats[i].count});
    }
    return {};
}

/// Hands the declared columns to the meta header and the groups, in table order. With column
/// counts on every class the meta columns are the rest; otherwise groups take the consecutive
/// columns of their urn and the meta columns are those before the first group column.
ErrorObject distributeColumns(std::vector<DeclaredColumn>& declared, std::vector<ColumnHeader>& meta,
                              std::vector<Group>& groups) {
    const bool counted = std::all_of(groups.begin(), groups.end(), [](const Group& g) { return g.count.has_value(); });
    std::size_t metaCount = 0;
    if (counted) {
        std::size_t grouped = 0;
        for (const auto& group : groups) grouped += *group.count;
        if (grouped > declared.size()) return contentError(messages::AC_COLUMNS_NOT_GROUPED);
        metaCount = declared.size() - grouped;
    } else {
        const auto isGroupUrn = [&](const DeclaredColumn& column) {
            return std::any_of(groups.begin(), groups.end(), [&](const Group& g) { return g.urn == column.urn; });
        };
        while (metaCount < declared.size() && !isGroupUrn(declared[metaCount])) ++metaCount;
    }
    for (std::size_t i = 0; i < metaCount; ++i) meta.push_back(std::move(declared[i].header));
    std::size_t next = metaCount;
    for (auto& group : groups) {
        const std::size_t end = counted ? next + *group.count : declared.size();
        for (; next < end && declared[next].urn == group.urn; ++next) group.columns->push_back(std::move(declared[next].header));
        if (counted && next != end) return contentError(messages::AC_COLUMNS_NOT_GROUPED);
    }
    if (next != declared.size()) return contentError(messages::AC_COLUMNS_NOT_GROUPED);
    return {};
}

std::size_t countRequiredMeta(const auto& names, std::size_t count, auto nameOf) {
    static constexpr std::array<std::string_view, 3> REQUIRED{"frequency", "periods", "time"};
    std::size_t found = 0;
    for (const auto required : REQUIRED) {
        for (std::size_t i = 0; i < count; ++i) {
            if (nameOf(names[i]) == required) {
                ++found;
                break;
            }
        }
    }
    return found;
}

/// Splits the table's columns (meta, paths, impedances, async paths, potentiostats) into groups.
std::vector<EisDataset::GroupTracks> takeGroups(std::vector<std::vector<double>>& columns, std::size_t& next,
                                                const auto& headers) {
    std::vector<EisDataset::GroupTracks> out;
    out.reserve(headers.size());
    for (const auto& header : headers) {
        auto& group = out.emplace_back();
        for (std::size_t c = 0; c < header.columns.size(); ++c) group.push_back(std::move(columns[next++]));
    }
    return out;
}

}  // namespace

void EisDataset::acceptSerializer(VXml::XmlSerializer& serializer) const {
    if (!hasConsistentShape()) {
        serializer.setError(contentError(messages::AC_TABLE_MISMATCH, header_.allColumns().size(), getRowCount()));
        return;
    }
    auto* element = serializer.document().NewElement(names::DATASET);
    element->SetAttribute("type", "AC");
    setStringAttribute(element, "job-type-short", getJobTypeShort());
    setStringAttribute(element, "job-type", getJobType());

    auto* configuration = appendChild(element, names::CONFIGURATION);
    for (const auto& path : header_.paths) {
        auto* columnClass = VXml::appendColumnClassElement(configuration, PATH_CLASS, path.uri, path.columns.size());
        setStringAttribute(columnClass, "name", path.name);
        if (path.polynomial) VXml::appendPolynomialElement(columnClass, names::POLYNOMIAL, *path.polynomial);
    }
    std::vector<std::string> impedanceUrns;
    impedanceUrns.reserve(header_.impedances.size());
    for (const auto& impedance : header_.impedances) {
        impedanceUrns.push_back(impedance.getUri());
        auto* columnClass = VXml::appendColumnClassElement(configuration, IMPEDANCE_CLASS, impedanceUrns.back(),
                                                           impedance.columns.size());
        setStringAttribute(columnClass, "numerator", impedance.numerator);
        setStringAttribute(columnClass, "denominator", impedance.denominator);
        setStringAttribute(columnClass, "impedance_name", impedance.impedance_name);
    }
    for (const auto& path : header_.async_paths) {
        auto* columnClass = VXml::appendColumnClassElement(configuration, ASYNC_PATH_CLASS, path.uri, path.columns.size());
        setStringAttribute(columnClass, "name", path.name);
        if (path.polynomial) VXml::appendPolynomialElement(columnClass, names::POLYNOMIAL, *path.polynomial);
    }
    for (const auto& potentiostat : header_.potentiostats) {
        auto* columnClass = VXml::appendColumnClassElement(configuration, POTENTIOSTAT_CLASS, potentiostat.uri,
                                                           potentiostat.columns.size());
        if (potentiostat.polynomial) {
            VXml::appendPolynomialElement(columnClass, names::POLYNOMIAL, *potentiostat.polynomial);
        }
        if (potentiostat.potentiostatic_polynomial) {
            VXml::appendPolynomialElement(columnClass, names::POTENTIOSTATIC_POLYNOMIAL,
                                          *potentiostat.potentiostatic_polynomial);
        }
    }

    auto* structure = appendChild(element, names::DATA_STRUCTURE);
    VXml::appendXmlColumnElements(structure, header_.meta, nullptr);
    for (const auto& path : header_.paths) VXml::appendXmlColumnElements(structure, path.columns, &path.uri);
    for (std::size_t i = 0; i < header_.impedances.size(); ++i) {
        VXml::appendXmlColumnElements(structure, header_.impedances[i].columns, &impedanceUrns[i]);
    }
    for (const auto& path : header_.async_paths) VXml::appendXmlColumnElements(structure, path.columns, &path.uri);
    for (const auto& potentiostat : header_.potentiostats) {
        VXml::appendXmlColumnElements(structure, potentiostat.columns, &potentiostat.uri);
    }

    VXml::appendSectionsElement(element, getIncludedDatasets());
    auto* csv = appendChild(element, names::CSV);
    csv->SetAttribute("type", "data");
    VXml::EisCsvWriter(*this).writeTo(serializer.document(), csv);
    for (std::size_t p = 0; p < header_.paths.size(); ++p) {
        auto* waves = appendChild(element, names::CSV);
        waves->SetAttribute("type", WAVE_TABLE);
        setStringAttribute(waves, "urn", header_.paths[p].uri);
        waves->SetText(VXml::writeWaveTable(pathWaves_[p]).c_str());
    }
    serializer.setProduced(element);
}

std::expected<EisDataset, ErrorObject> EisDataset::buildFromXmlElement(const tinyxml2::XMLElement* element,
                                                                       VXml::DeserializationContext& context) {
    const auto child = [&](const char* name) -> std::expected<const tinyxml2::XMLElement*, ErrorObject> {
        if (const auto* found = element->FirstChildElement(name)) return found;
        return std::unexpected(contentError(messages::AC_CHILD_MISSING, name));
    };
    auto configuration = child(names::CONFIGURATION);
    if (!configuration) return std::unexpected(configuration.error());
    auto structure = child(names::DATA_STRUCTURE);
    if (!structure) return std::unexpected(structure.error());
    auto sectionsElement = child(names::SECTIONS);
    if (!sectionsElement) return std::unexpected(sectionsElement.error());
    auto csv = child(names::CSV);
    if (!csv) return std::unexpected(csv.error());

    LiveDataHeaderEis header;
    const char* jobType = element->Attribute("job-type");
    const char* jobTypeShort = element->Attribute("job-type-short");
    header.measurement_type = jobType != nullptr ? jobType : "";
    header.measurement_type_short = jobTypeShort != nullptr ? jobTypeShort : "";
    std::vector<Group> groups;
    if (auto error = readConfiguration(*configuration, header, groups)) return std::unexpected(std::move(error));

    std::vector<DeclaredColumn> declared;
    for (const auto* column = (*structure)->FirstChildElement(names::COLUMN); column != nullptr;
         column = column->NextSiblingElement(names::COLUMN)) {
        auto urn = stringAttribute(column, "urn");
        if (!urn) return std::unexpected(urn.error());
        auto name = stringAttribute(column, "name");
        if (!name) return std::unexpected(name.error());
        auto unit = stringAttribute(column, "unit");
        if (!unit) return std::unexpected(unit.error());
        const char* ownUrn = column->Attribute("column-urn");
        declared.push_back({*urn, ColumnHeader(std::move(*name), std::move(*unit), ownUrn != nullptr ? ownUrn : "")});
    }
    // Meta columns carry their own urn in `urn`.
    const std::size_t declaredCount = declared.size();
    if (auto error = distributeColumns(declared, header.meta, groups)) return std::unexpected(std::move(error));
    for (std::size_t i = 0; i < header.meta.size(); ++i) header.meta[i].urn = declared[i].urn;

    auto sections = VXml::datasetInfoVectorFromSection(*sectionsElement, context);
    if (!sections) return std::unexpected(sections.error());

    VXml::CsvParser parser(elementText(*csv));
    const bool rowsDeclared = sections->size() == 1;
    const std::size_t declaredRows = rowsDeclared ? sections->front().length : 0;
    if (!parser.parse() || parser.columnCount() != declaredCount || (rowsDeclared && parser.rowCount() != declaredRows)) {
        return std::unexpected(
            contentError(messages::AC_TABLE_MISMATCH, declaredCount, rowsDeclared ? declaredRows : parser.rowCount()));
    }
    const std::size_t rows = parser.rowCount();
    const auto declaredMeta = countRequiredMeta(header.meta, header.meta.size(), [](const ColumnHeader& c) -> const std::string& { return c.dimension; });
    const auto parsedMeta = countRequiredMeta(parser.names(), std::min(header.meta.size(), parser.names().size()),
                                              [](const std::string& name) -> const std::string& { return name; });
    if (declaredMeta < 3 || parsedMeta < 3) {
        return std::unexpected(contentError(messages::AC_META_COLUMNS_MISSING, declaredMeta, parsedMeta));
    }

    // The wave tables: every `csv` element after the data table.
    std::vector<const tinyxml2::XMLElement*> waveTables;
    for (const auto* table = (*csv)->NextSiblingElement(names::CSV); table != nullptr;
         table = table->NextSiblingElement(names::CSV)) {
        waveTables.push_back(table);
    }
    if (waveTables.size() != header.paths.size()) {
        return std::unexpected(contentError(messages::AC_WAVE_TABLE_COUNT, header.paths.size(), waveTables.size()));
    }
    const unsigned version = context.file_version;
    const bool legacy = version != VXml::DeserializationContext::INVALID_FILE_VERSION && version < VXml::Legacy::VARIABLE_WAVES_SINCE;
    std::vector<Waves> pathWaves(header.paths.size());
    for (std::size_t p = 0; p < waveTables.size(); ++p) {
        if (legacy) {
            auto waves = VXml::Legacy::parseFixedSizeWaveTable(waveTables[p], p, rows);
            if (!waves) return std::unexpected(waves.error());
            pathWaves[p] = std::move(*waves);
            continue;
        }
        VXml::CsvParser waveParser(elementText(waveTables[p]));
        if (!waveParser.parseWaveVariable()) {
            return std::unexpected(contentError(messages::AC_WAVE_TABLE_MALFORMED, p, version));
        }
        if (waveParser.waves().size() > rows) {
            return std::unexpected(contentError(messages::AC_TOO_MANY_WAVES, p, waveParser.waves().size(), rows));
        }
        pathWaves[p] = std::move(waveParser.waves());
    }

    auto& columns = parser.columns();
    std::size_t next = 0;
    GroupTracks meta;
    for (std::size_t i = 0; i < header.meta.size(); ++i) meta.push_back(std::move(columns[next++]));
    auto paths = takeGroups(columns, next, header.paths);
    auto impedances = takeGroups(columns, next, header.impedances);
    auto asyncPaths = takeGroups(columns, next, header.async_paths);
    auto potentiostats = takeGroups(columns, next, header.potentiostats);
    JobInfo jobInfo = sections->empty() ? JobInfo{} : sections->front().job_info;
    EisDataset dataset(std::move(header), std::move(impedances), std::move(paths), std::move(pathWaves),
                       std::move(asyncPaths), std::move(potentiostats), std::move(meta), std::move(jobInfo));
    if (legacy && !dataset.getPaths().empty()) {
        // Older files hold one wave per row; the row refers to its own wave until equal waves
        // are merged.
        const std::size_t waveId = dataset.findIndexOfColumInMeta("wave_id");
        if (waveId != NOT_FOUND) {
            auto& ids = dataset.metaForWriting()[waveId];
            for (std::size_t r = 0; r < ids.size(); ++r) ids[r] = static_cast<double>(r);
            dataset.rebuildHelperObjects();
        }
        dataset.dedupWaves();
    }
    if (sections->size() > 1) dataset.setIncludedDatasets(std::move(*sections));
    return dataset;
}

}  // namespace velmar
