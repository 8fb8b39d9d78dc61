#pragma once

#include "py_common.hpp"

// One function per binding area, called by the module frame in dependency order.
namespace velmar::python {

void bindErrors(py::module_& m);
void bindEnums(py::module_& m);
void bindConstants(py::module_& m);
void bindSettings(py::module_& m);
void bindLink(py::module_& m);
/// The records that the link returns; called by bindLink.
void bindLinkRecords(py::module_& m);
void bindEvents(py::module_& m);
void bindJobsCommon(py::module_& m);
void bindStopConditions(py::module_& m);
void bindJobsControl(py::module_& m);
void bindJobsMeas(py::module_& m);
void bindHardware(py::module_& m);
void bindDatasets(py::module_& m);
void bindJobsDc(py::module_& m);
/// The impedance live-data classes and the group headers they share with the impedance dataset.
void bindEisLiveData(py::module_& m);
void bindJobsAc(py::module_& m);
/// EisDataset with its helper objects and the impedance live-data collector; after bindJobsAc.
void bindEisDataset(py::module_& m);
/// XmlSerializable, the base of the datasets' Python classes; before bindDatasets.
void bindXmlSerializable(py::module_& m);
/// The xml submodule: file info, measurement, importer and exporter; after the datasets.
void bindXml(py::module_& m);
/// VrbImporter, the import of the binary dataset snapshots; after both dataset kinds.
void bindVrb(py::module_& m);

}  // namespace velmar::python
