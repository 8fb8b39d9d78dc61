// The data tables of the DC and impedance datasets.

#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"
#include "xml/csv.hpp"

#include <tinyxml2.h>

namespace VXml {

std::string writeDcTable(const velmar::DcDataset& dataset) {
    const auto& header = dataset.getHeader();
    const auto& tracks = dataset.getTracks();
    std::vector<CsvColumn> columns;
    columns.reserve(header.size());
    for (std::size_t i = 0; i < header.size(); ++i) {
        columns.push_back({header[i].dimension, header[i].unit, header[i].urn, i < tracks.size() ? &tracks[i] : nullptr});
    }
    return writeCsvTable(columns);
}

EisCsvWriter::EisCsvWriter(const velmar::EisDataset& dataset) : dataset_(dataset) {}

void EisCsvWriter::appendDataHeaderColumns(const std::vector<velmar::ColumnHeader>& headers, std::string_view group,
                                           const std::vector<std::vector<double>>& tracks) {
    for (std::size_t i = 0; i < headers.size(); ++i) {
        columns_.push_back({headers[i].dimension, headers[i].unit, group, i < tracks.size() ? &tracks[i] : nullptr});
    }
}

std::string EisCsvWriter::text() {
    columns_.clear();
    groupTexts_.clear();
    const auto& header = dataset_.getHeader();
    // Reserved up front: columns_ keeps views into these texts.
    groupTexts_.reserve(header.impedances.size());
    appendDataHeaderColumns(header.meta, {}, dataset_.getMetaTracks());
    for (std::size_t p = 0; p < header.paths.size(); ++p) {
        appendDataHeaderColumns(header.paths[p].columns, header.paths[p].name, dataset_.getPaths()[p]);
    }
    for (std::size_t i = 0; i < header.impedances.size(); ++i) {
        groupTexts_.push_back(header.impedances[i].getUri());
        appendDataHeaderColumns(header.impedances[i].columns, groupTexts_.back(), dataset_.getImpedances()[i]);
    }
    for (std::size_t p = 0; p < header.async_paths.size(); ++p) {
        appendDataHeaderColumns(header.async_paths[p].columns, header.async_paths[p].name,
                                dataset_.getAsyncPaths()[p]);
    }
    for (std::size_t p = 0; p < header.potentiostats.size(); ++p) {
        appendDataHeaderColumns(header.potentiostats[p].columns, header.potentiostats[p].uri,
                                dataset_.getPotentiostats()[p]);
    }
    return writeCsvTable(columns_);
}

void EisCsvWriter::writeTo(tinyxml2::XMLDocument& /*document*/, tinyxml2::XMLElement* element) {
    element->SetText(text().c_str());
}

}  // namespace VXml
