#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "xml/csv.hpp"
#include "xml/dataset_xml.hpp"
#include "xml/hardware_info_xml.hpp"
#include "xml/xml_exporter.hpp"
#include "xml/xml_importer.hpp"
#include "xml/xml_messages.hpp"
#include "xml/xml_test_support.hpp"

#include <tinyxml2.h>

#include <cstring>
#include <fstream>
#include <source_location>

namespace {

using namespace velmar;
using namespace velmar::testing;
using VXml::Measurement;
using VXml::VXmlExporter;
using VXml::VXmlImporter;
using VXml::XmlFormatVersion;

std::shared_ptr<EisDataset> eisWithWaves() {
    // Rows 0 and 2 share a wave; row 3 has none.
    std::vector<LiveDataRowEis> rows{eisRow(0.0, 0.0, {1.0, -0.0, 5e-324}), eisRow(1.0, 1.0, {2.0, 3.0}),
                                     eisRow(2.0, 0.0, {}), eisRow(3.0, -1.0, {})};
    auto dataset = std::make_shared<EisDataset>(eisDatasetOf(rows));
    dataset->dedupWaves();
    return dataset;
}

Measurement fullMeasurement() {
    Measurement measurement(hardwareInfo(), std::make_shared<DcDataset>(dcDataset(40)));
    measurement.appendDataset(eisWithWaves());
    return measurement;
}

std::string savedText(const VXml::XmlSerializable& object, VXml::ExportOptions options = {}) {
    auto text = VXmlExporter(std::move(options)).serializeAsFileStandalone(object, "a comment");
    EXPECT_TRUE(text.has_value()) << (text ? "" : text.error().getMessageFormatted());
    return text.value_or("");
}

void expectSameDc(const DcDataset& a, const DcDataset& b) {
    EXPECT_EQ(a.getHeader(), b.getHeader());
    EXPECT_EQ(a.getJobType(), b.getJobType());
    EXPECT_EQ(a.getJobTypeShort(), b.getJobTypeShort());
    EXPECT_EQ(bitsOfTracks(a.getTracks()), bitsOfTracks(b.getTracks()));
    EXPECT_EQ(a.getJobInfo().job_id, b.getJobInfo().job_id);
}

void expectSameEis(const EisDataset& a, const EisDataset& b) {
    EXPECT_EQ(a.getHeader(), b.getHeader());
    EXPECT_EQ(bitsOfTracks(a.getMetaTracks()), bitsOfTracks(b.getMetaTracks()));
    for (std::size_t i = 0; i < a.getImpedances().size(); ++i) {
        EXPECT_EQ(bitsOfTracks(a.getImpedances()[i]), bitsOfTracks(b.getImpedances()[i]));
    }
    for (std::size_t p = 0; p < a.getPaths().size(); ++p) {
        EXPECT_EQ(bitsOfTracks(a.getPaths()[p]), bitsOfTracks(b.getPaths()[p]));
        EXPECT_EQ(bitsOfTracks(a.getPathsWaves()[p]), bitsOfTracks(b.getPathsWaves()[p]));
    }
    for (std::size_t p = 0; p < a.getAsyncPaths().size(); ++p) {
        EXPECT_EQ(bitsOfTracks(a.getAsyncPaths()[p]), bitsOfTracks(b.getAsyncPaths()[p]));
    }
    for (std::size_t p = 0; p < a.getPotentiostats().size(); ++p) {
        EXPECT_EQ(bitsOfTracks(a.getPotentiostats()[p]), bitsOfTracks(b.getPotentiostats()[p]));
    }
    for (std::size_t row = 0; row < a.getRowCount(); ++row) {
        EXPECT_EQ(bitsOf(a.getWaveForRow(0, row)), bitsOf(b.getWaveForRow(0, row))) << row;
    }
}

std::expected<VXml::ImportedFile, ErrorObject> importText(const std::string& text, bool ignoreVersion = false) {
    return VXmlImporter(ignoreVersion).importFromMemory(text);
}

/// The import fails with that code and formatted message.
void expectImportError(const std::string& text, ErrorCodeEnum code, std::string_view message,
                       std::source_location where = std::source_location::current()) {
    SCOPED_TRACE(::testing::Message() << "called from line " << where.line());
    auto imported = importText(text);
    ASSERT_FALSE(imported.has_value());
    EXPECT_EQ(imported.error().code, code);
    EXPECT_EQ(imported.error().getMessageFormatted(), message);
}

constexpr auto INVALID = ErrorCodeEnum::RESOURCE_CONTENT_INVALID;

TEST(XmlFile, MeasurementRoundTripsBitForBit) {
    const auto measurement = fullMeasurement();
    auto imported = importText(savedText(measurement));
    ASSERT_TRUE(imported.has_value()) << imported.error().getMessageFormatted();
    auto read = imported->as<Measurement>();
    ASSERT_TRUE(read);
    ASSERT_TRUE(read->getHardwareInfo().has_value());
    EXPECT_EQ(VXmlExporter().serialize(VXml::Measurement(*read->getHardwareInfo())).value(),
              VXmlExporter().serialize(VXml::Measurement(hardwareInfo())).value());
    ASSERT_EQ(read->getDatasets().size(), 2u);
    auto dc = std::dynamic_pointer_cast<DcDataset>(read->getDatasets()[0]);
    auto eis = std::dynamic_pointer_cast<EisDataset>(read->getDatasets()[1]);
    ASSERT_TRUE(dc && eis);
    expectSameDc(*std::dynamic_pointer_cast<DcDataset>(measurement.getDatasets()[0]), *dc);
    expectSameEis(*std::dynamic_pointer_cast<EisDataset>(measurement.getDatasets()[1]), *eis);
    EXPECT_EQ(imported->file_info.comment, "a comment");
    EXPECT_EQ(imported->file_info.file_version, XmlFormatVersion::CURRENT);
}

TEST(XmlFile, JoinedDcDatasetKeepsItsNanFillAndItsSections) {
    auto joined = dcDataset(5);
    auto other = DcDataset("ocp", "OCP", {ColumnHeader("time", "s", "MAIN:TIME"), ColumnHeader("temp", "°C", "T")},
                           {{0.0, 1.0}, {20.5, 20.25}}, JobInfo{});
    joined.append(other, 0.5);
    auto imported = importText(savedText(VXml::Measurement(std::make_shared<DcDataset>(joined))));
    ASSERT_TRUE(imported.has_value()) << imported.error().getMessageFormatted();
    auto read = std::dynamic_pointer_cast<DcDataset>(imported->as<Measurement>()->getDatasets().at(0));
    expectSameDc(joined, *read);
    EXPECT_EQ(read->getJobType(), "DC Combined");
    EXPECT_TRUE(std::isnan(read->getDcTrack("temp")[0]));
    const auto sections = read->getIncludedDatasets();
    ASSERT_EQ(sections.size(), 2u);
    EXPECT_EQ(sections[0].length, 5u);
    EXPECT_EQ(sections[1].job_type, "ocp");
    EXPECT_EQ(sections[1].length, 2u);
}

TEST(XmlFile, ImpedanceDatasetWithoutWavesOrWaveColumnsRoundTrips) {
    auto dataset = eisDatasetOf({eisRow(0.0, -1.0, {}, false), eisRow(1.0, -1.0, {}, false)}, false);
    auto imported = importText(savedText(dataset));
    ASSERT_TRUE(imported.has_value()) << imported.error().getMessageFormatted();
    expectSameEis(dataset, *imported->as<EisDataset>());
}

TEST(XmlFile, PolynomialsAndOwnColumnUrnsRoundTrip) {
    auto header = eisHeader();
    header.paths[0].polynomial = UserPolynomial{{0.5, -0.0, 1e-300}};
    header.async_paths[0].polynomial = UserPolynomial{{}};
    header.potentiostats[0].polynomial = UserPolynomial{{1.0, 2.0}};
    header.potentiostats[0].potentiostatic_polynomial = UserPolynomial{{3.0}};
    header.impedances[0].columns[0].urn = "own:urn";
    header.impedances[0].impedance_name = "cell; one";
    EisDataset dataset(std::move(header), JobInfo{});
    dataset.appendDataRow(eisRow(1.0, 0.0, {1.0}));
    auto imported = importText(savedText(dataset));
    ASSERT_TRUE(imported.has_value()) << imported.error().getMessageFormatted();
    expectSameEis(dataset, *imported->as<EisDataset>());
    const auto& read = imported->as<EisDataset>()->getHeader();
    EXPECT_EQ(bitsOf(read.paths[0].polynomial->coefficients), bitsOf(std::vector<double>{0.5, -0.0, 1e-300}));
    EXPECT_FALSE(read.paths[1].polynomial.has_value());
    EXPECT_TRUE(read.async_paths[0].polynomial->coefficients.empty());
}

TEST(XmlFile, FileHasTheDeclarationTheDoubleRootAndTheFileInfo) {
    VXml::ExportOptions options;
    options.generator = "lab script";
    options.generator_version = "7.1";
    const auto text = savedText(Measurement(hardwareInfo()), options);
    EXPECT_EQ(text.rfind(R"(<?xml version="1.0" encoding="utf-8" standalone="yes"?>)", 0), 0u);
    tinyxml2::XMLDocument document;
    ASSERT_EQ(document.Parse(text.c_str()), tinyxml2::XML_SUCCESS);
    const auto* root = document.RootElement();
    EXPECT_STREQ(root->Name(), "velmar-measurement");
    const auto* info = root->FirstChildElement();
    ASSERT_STREQ(info->Name(), "velmar-fileinfo");
    EXPECT_STREQ(info->NextSiblingElement()->Name(), "velmar-measurement");
    std::vector<std::string> children;
    for (const auto* child = info->FirstChildElement(); child; child = child->NextSiblingElement()) {
        children.emplace_back(child->Name());
    }
    EXPECT_EQ(children, (std::vector<std::string>{"type", "file-version", "creation-timestamp", "generator",
                                                  "generator-version", "comment"}));
    EXPECT_STREQ(info->FirstChildElement("type")->GetText(), "velmar-measurement");
    EXPECT_STREQ(info->FirstChildElement("file-version")->GetText(), "4");
    EXPECT_STREQ(info->FirstChildElement("generator")->GetText(), "lab script");
    EXPECT_STREQ(info->FirstChildElement("generator-version")->GetText(), "7.1");
    EXPECT_EQ(std::string(info->FirstChildElement("creation-timestamp")->GetText()).size(), 19u);
    // The device tree through the described members.
    const auto* hardware = info->NextSiblingElement()->FirstChildElement("hardware-info");
    ASSERT_TRUE(hardware);
    EXPECT_STREQ(hardware->Attribute("workstation"), "RQ5 #42");
    const auto* gain = hardware->FirstChildElement("paths")->FirstChildElement("path")->FirstChildElement(
        "gain_ranges")->FirstChildElement("gain_range");
    ASSERT_TRUE(gain);
    EXPECT_STREQ(gain->Attribute("enabled"), "true");
    EXPECT_STREQ(gain->Attribute("nominal_gain"), "1");
}

TEST(XmlFile, MeasurementWithoutHardwareInfoHasNoHardwareElementAndCompactHasNoLineBreaks) {
    VXml::ExportOptions options;
    options.compact_xml = true;
    const auto text = savedText(Measurement(std::make_shared<DcDataset>(dcDataset(2))), options);
    EXPECT_EQ(text.find("hardware-info"), std::string::npos);
    // Line breaks remain only inside the data table.
    const auto table = text.find("<csv");
    EXPECT_EQ(text.substr(0, table).find('\n'), std::string::npos);
    EXPECT_EQ(VXmlExporter(options).getFileVersion(), XmlFormatVersion::CURRENT);
}

TEST(XmlFile, DatasetPayloadImportsAsADatasetAndTypedImportsCheckThePayload) {
    const auto text = savedText(dcDataset(3));
    tinyxml2::XMLDocument document;
    ASSERT_EQ(document.Parse(text.c_str()), tinyxml2::XML_SUCCESS);
    EXPECT_STREQ(document.RootElement()->Name(), "dataset");
    auto imported = importText(text);
    ASSERT_TRUE(imported.has_value());
    EXPECT_EQ(imported->file_info.type, "dataset");
    EXPECT_TRUE(imported->as<DcDataset>());
    EXPECT_FALSE(imported->as<Measurement>());
    VXmlImporter importer;
    EXPECT_TRUE(importer.importFromMemoryAs<DcDataset>(text).has_value());
    auto wrong = importer.importFromMemoryAs<EisDataset>(text);
    ASSERT_FALSE(wrong.has_value());
    EXPECT_EQ(wrong.error(), VXmlImporter::makeTypeMismatchError());
    EXPECT_EQ(wrong.error().getMessageFormatted(), "imported object type does not match the requested type");
    EXPECT_FALSE(importer.importFromMemoryAs<Measurement>(text).has_value());
}

TEST(XmlFile, PlainElementsSerializeAndDeserializeWithoutTheFrame) {
    VXmlExporter exporter;
    const auto text = exporter.serialize(dcDataset(4)).value();
    EXPECT_EQ(text.find("velmar-fileinfo"), std::string::npos);
    auto object = VXmlImporter().deserialize(text);
    ASSERT_TRUE(object.has_value()) << object.error().getMessageFormatted();
    expectSameDc(dcDataset(4), *std::dynamic_pointer_cast<DcDataset>(*object));
    auto null = exporter.serialize(std::shared_ptr<VXml::XmlSerializable>());
    ASSERT_FALSE(null.has_value());
    EXPECT_EQ(null.error().getMessageFormatted(), "nothing to serialize: the serializable is a null pointer");
}

TEST(XmlFile, DatasetsThatDoNotHaveTheirShapeAreNotWritten) {
    auto ragged = dcDataset(3);
    ragged.appendDataRow(std::vector<double>{1.0});
    auto text = VXmlExporter().serializeAsFileStandalone(ragged, "");
    ASSERT_FALSE(text.has_value());
    EXPECT_EQ(text.error().getMessageFormatted(), "the DC data table does not match the declared 3 columns x 4 rows");
    auto eis = eisDatasetOf({eisRow(0.0, -1.0, {})});
    eis.metaForWriting()[0].push_back(1.0);
    EXPECT_FALSE(VXmlExporter().serialize(Measurement(std::make_shared<EisDataset>(eis))).has_value());
}

TEST(XmlFile, FrameErrorsHaveTheirMessages) {
    const auto good = savedText(Measurement(std::make_shared<DcDataset>(dcDataset(2))));
    expectImportError("", INVALID, "document has no root element");
    auto malformed = importText("<velmar-measurement><unclosed></velmar-measurement>");
    ASSERT_FALSE(malformed.has_value());
    EXPECT_EQ(malformed.error().getMessageFormatted().rfind("malformed XML: ", 0), 0u);
    expectImportError("<velmar-measurement/>", INVALID,
                      "no <velmar-fileinfo> element found, not a standalone Velmar XML file");
    expectImportError(replaced(replaced(good, "<velmar-measurement>", "<other>"), "</velmar-measurement>\n</velmar-measurement>",
                               "</velmar-measurement>\n</other>"),
                      INVALID, "root element <other> does not match the declared type 'velmar-measurement'");
    expectImportError(replaced(good, "<type>velmar-measurement</type>", "<type>dataset</type>"), INVALID,
                      "root element <velmar-measurement> does not match the declared type 'dataset'");
    const auto noPayload = replaced(replaced(good, "</velmar-fileinfo>\n    <velmar-measurement>", "</velmar-fileinfo>\n<x>"),
                                    "</velmar-measurement>\n</velmar-measurement>", "</x>\n</velmar-measurement>");
    expectImportError(noPayload, INVALID, "no <velmar-measurement> payload element inside the file");
    expectImportError(replaced(good, "<dataset type=\"DC\"", "<dataset type=\"XY\""), INVALID,
                      "could not deserialize <velmar-measurement>: <dataset> #0 could not be parsed: "
                      "<dataset type=\"XY\"> is not a known dataset type (expected \"DC\" or \"AC\")");
}

TEST(XmlFile, NewerFilesAreRefusedUnlessIgnoredAndTooOldOnesAlways) {
    const auto good = savedText(dcDataset(2));
    const auto newer = replaced(good, "<file-version>4</file-version>", "<file-version>5</file-version>");
    expectImportError(newer, ErrorCodeEnum::PROTOCOL_VERSION_MISMATCH, "protocol version mismatch");
    auto ignored = importText(newer, true);
    ASSERT_TRUE(ignored.has_value()) << ignored.error().getMessageFormatted();
    EXPECT_EQ(ignored->file_info.file_version, 5u);
    expectImportError(replaced(good, "<file-version>4</file-version>", "<file-version>2</file-version>"),
                      ErrorCodeEnum::FILE_VERSION_NOT_SUPPORTED, "file version '2' is not supported (supported: 3..4)");
    expectImportError(replaced(good, "<file-version>4</file-version>", "<file-version>four</file-version>"),
                      ErrorCodeEnum::FILE_VERSION_NOT_SUPPORTED, "file version 'four' is not supported (supported: 3..4)");
    EXPECT_TRUE(XmlFormatVersion::is_supported(3));
    EXPECT_FALSE(XmlFormatVersion::is_supported(5));
    EXPECT_EQ(XmlFormatVersion::supported_range(), "3..4");
}

TEST(XmlFile, DcDatasetErrorsHaveTheirMessages) {
    const auto good = savedText(dcDataset(2));
    const std::string prefix = "could not deserialize <dataset>: ";
    expectImportError(replacedSpan(good, "<data-structure>", "</data-structure>"), INVALID,
                      prefix + "DC <dataset> is missing its <data-structure> element");
    expectImportError(replacedSpan(good, "<data-structure>", "</data-structure>", "<data-structure/>"), INVALID,
                      prefix + "DC <dataset> declares no <column> in its <data-structure> element");
    expectImportError(replacedSpan(good, "<csv", "</csv>", "<csv type=\"data\">\n</csv>"), INVALID,
                      prefix + "the <csv> element of the DC dataset is empty");
    expectImportError(replacedSpan(good, "<csv", "</csv>"), INVALID, prefix + "DC <dataset> is missing its <csv> element");
    expectImportError(replaced(good, "0.01;-0.499", "0.01;"), INVALID,
                      prefix + "the DC data table does not match the declared 3 columns x 2 rows");
    expectImportError(replaced(good, "length=\"2\"", "length=\"3\""), INVALID,
                      prefix + "the DC data table does not match the declared 3 columns x 3 rows");
    expectImportError(replaced(good, "0.01;-0.499", "0.01;minus"), INVALID,
                      prefix + "the DC data table does not match the declared 3 columns x 2 rows");
    expectImportError(replaced(good, " unit=\"V\"", ""), INVALID, prefix + "<column> is missing its required 'unit' attribute");
}

TEST(XmlFile, SectionErrorsHaveTheirMessages) {
    const auto good = savedText(dcDataset(2));
    const std::string prefix = "could not deserialize <dataset>: ";
    expectImportError(replaced(good, "length=\"2\"", "length=\"two\""), INVALID,
                      prefix + "<section> attribute 'length' is not a number: 'two'");
    expectImportError(replaced(good, "time-start=\"0\"", "time-start=\"0s\""), INVALID,
                      prefix + "<section> attribute 'time-start' is not a number: '0s'");
    expectImportError(replaced(good, " job-type-short=\"CV\" length", " length"), INVALID,
                      prefix + "<section> is missing its required 'job-type-short' attribute");
    expectImportError(replacedSpan(good, "<job-info>", "</job-info>"), INVALID,
                      prefix + "<section> is missing its <job-info> element");
    expectImportError(replacedSpan(good, "<sections>", "</sections>"), INVALID,
                      prefix + "DC <dataset> is missing its <sections> element");
}

TEST(XmlFile, BrokenHardwareInfoIsReportedAsSuch) {
    const auto good = savedText(Measurement(hardwareInfo()));
    expectImportError(replaced(good, " dac_resolution=\"18\"", ""), INVALID,
                      "could not deserialize <velmar-measurement>: <hardware-info> is present but could not be "
                      "parsed: <potentiostat> is missing its required 'dac_resolution' attribute");
    expectImportError(replaced(good, "enabled=\"true\"", "enabled=\"yes\""), INVALID,
                      "could not deserialize <velmar-measurement>: <hardware-info> is present but could not be "
                      "parsed: <gain_range> attribute 'enabled' is not a boolean: 'yes'");
    expectImportError(replacedSpan(good, "<cards>", "</cards>"), INVALID,
                      "could not deserialize <velmar-measurement>: <hardware-info> is present but could not be "
                      "parsed: <hardware-info> is missing its <cards> element");
}

TEST(XmlFile, ImpedanceDatasetErrorsHaveTheirMessages) {
    const auto good = savedText(*eisWithWaves());
    const std::string prefix = "could not deserialize <dataset>: ";
    expectImportError(replacedSpan(good, "<configuration>", "</configuration>"), INVALID, prefix + "AC <dataset> is missing its <configuration> element");
    const auto lastWaves = good.rfind("<csv type=\"wave\"");
    auto oneWaveTable = good;
    oneWaveTable.erase(lastWaves, good.find("</csv>", lastWaves) + 6 - lastWaves);
    expectImportError(oneWaveTable, INVALID, prefix + "AC <dataset> declares 2 sync paths but carries 1 wave tables");
    expectImportError(replaced(good, "3;1;-0;4.9406564584124654e-324;", "3;1;-0;"), INVALID,
                      prefix + "the wave table of sync path 0 is malformed for file format version 4");
    expectImportError(replaced(good, "3;1;-0;4.9406564584124654e-324;\n", "3;1;-0;4.9406564584124654e-324;\n0;\n0;\n0;\n"),
                      INVALID, prefix + "sync path 0 carries 5 waves but the dataset has only 4");
    expectImportError(replaced(replaced(good, "name=\"periods\"", "name=\"cycles\""), ">frequency;periods;", ">frequency;cycles;"), INVALID,
                      prefix + "AC <dataset> does not contain the expected meta data columns (frequency, periods, "
                               "time): found 2 declared and 2 parsed");
    expectImportError(replaced(good, ">frequency;periods;", ">frequency;cycles;"), INVALID,
                      prefix + "AC <dataset> does not contain the expected meta data columns (frequency, periods, "
                               "time): found 3 declared and 2 parsed");
    expectImportError(replaced(good, "length=\"4\"", "length=\"5\""), INVALID,
                      prefix + "the AC data table does not match the declared 13 columns x 5 rows");
    expectImportError(replaced(good, "type=\"async_path\"", "type=\"mystery\""), INVALID,
                      prefix + "<column-class> of unknown type 'mystery'");
}

TEST(XmlFile, ColumnClassesWithoutCountsAreGroupedByUrn) {
    const auto dataset = eisWithWaves();
    auto text = savedText(*dataset);
    for (const char* count : {" columns=\"2\"", " columns=\"1\""}) {
        for (auto at = text.find(count); at != std::string::npos; at = text.find(count)) text.erase(at, std::strlen(count));
    }
    ASSERT_EQ(text.find(" columns="), std::string::npos);
    auto imported = importText(text);
    ASSERT_TRUE(imported.has_value()) << imported.error().getMessageFormatted();
    expectSameEis(*dataset, *imported->as<EisDataset>());
    expectImportError(replaced(savedText(*dataset), "columns=\"1\" name=\"temperature\"", "columns=\"3\" name=\"temperature\""),
                      INVALID,
                      "could not deserialize <dataset>: the <data-structure> columns do not follow the column "
                      "classes of the <configuration> element");
}

TEST(XmlFile, OlderVersionWaveTablesHoldOneFixedSizeWavePerRow) {
    // Version 3: each wave table declares `wave-size` and holds one wave per row.
    auto dataset = eisDatasetOf({eisRow(0.0, 0.0, {1.0, 2.0}), eisRow(1.0, 1.0, {3.0, 4.0}), eisRow(2.0, 2.0, {1.0, 2.0})});
    auto text = savedText(dataset);
    text = replaced(text, "<file-version>4</file-version>", "<file-version>3</file-version>");
    text = replaced(text, "<csv type=\"wave\" urn=\"MAIN:1:VOLTAGE\">2;1;2;\n2;3;4;\n2;1;2;\n",
                    "<csv type=\"wave\" urn=\"MAIN:1:VOLTAGE\" wave-size=\"2\">1;2;\n3;4;\n1;2;\n");
    text = replaced(text, "<csv type=\"wave\" urn=\"MAIN:1:CURRENT\">2;-1;-2;\n2;-3;-4;\n2;-1;-2;\n",
                    "<csv type=\"wave\" urn=\"MAIN:1:CURRENT\" wave-size=\"2\">-1;-2;\n-3;-4;\n-1;-2;\n");
    auto imported = importText(text);
    ASSERT_TRUE(imported.has_value()) << imported.error().getMessageFormatted();
    auto read = imported->as<EisDataset>();
    EXPECT_EQ(read->getPathWaves(0).size(), 2u);
    EXPECT_EQ(read->getWaveForRow(0, 2), (std::vector<double>{1.0, 2.0}));
    EXPECT_EQ(read->getWaveForRow(1, 1), (std::vector<double>{-3.0, -4.0}));
    expectImportError(replaced(text, "-3;-4;\n-1;-2;\n", "-3;-4;\n"), INVALID,
                      "could not deserialize <dataset>: the legacy wave table of sync path 1 does not match 3 rows of "
                      "2 samples");
}

TEST(XmlFile, FileErrorsHaveTheirCodes) {
    TempDir dir;
    VXmlImporter importer;
    auto missing = importer.importFromFile(dir.path() / "missing.xml");
    ASSERT_FALSE(missing.has_value());
    EXPECT_EQ(missing.error().code, ErrorCodeEnum::FILE_NOT_FOUND);
    auto directory = importer.importFromFile(dir.path());
    ASSERT_FALSE(directory.has_value());
    EXPECT_EQ(directory.error().code, ErrorCodeEnum::FILE_COULD_NOT_BE_OPENED);
    EXPECT_EQ(directory.error().getMessageFormatted(), "could not open the file for reading");
    std::ofstream(dir.path() / "empty.xml").close();
    auto empty = importer.importFromFile(dir.path() / "empty.xml");
    ASSERT_FALSE(empty.has_value());
    EXPECT_EQ(empty.error().code, ErrorCodeEnum::FILE_IS_EMPTY);
    auto info = importer.readFileInfo(dir.path() / "empty.xml");
    ASSERT_FALSE(info.has_value());
    EXPECT_EQ(info.error().code, ErrorCodeEnum::FILE_IS_EMPTY);
    // This file opens, but reading its first byte fails (EIO).
    auto unreadable = importer.importFromFile("/proc/self/mem");
    ASSERT_FALSE(unreadable.has_value());
    EXPECT_EQ(unreadable.error().code, ErrorCodeEnum::FILE_COULD_NOT_BE_READ);
    EXPECT_EQ(unreadable.error().getMessageFormatted(), "an error occurred while reading the file");
}

TEST(XmlFile, SeedFilesOfEveryLayoutImportAndTablesParse) {
    // Files written earlier (the fuzzing seeds) pin the format: they must keep importing.
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(VELMAR_XML_CORPUS_DIR "/xml")) {
        auto imported = VXmlImporter().importFromFile(entry.path());
        EXPECT_TRUE(imported.has_value()) << entry.path() << ": " << imported.error().getMessageFormatted();
        ++files;
    }
    EXPECT_GE(files, 5u);
    for (const char* table : {"dc_table.csv", "crlf.csv", "eis_table.csv"}) {
        std::ifstream in(std::filesystem::path(VELMAR_XML_CORPUS_DIR "/csv") / table, std::ios::binary);
        const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        VXml::CsvParser parser(text);
        EXPECT_TRUE(parser.parse()) << table << ": " << parser.error();
    }
}

TEST(XmlFileInfo, IsReadFromTheStartOfTheFileOnly) {
    TempDir dir;
    const auto file = dir.path() / "deep" / "er" / "big.xml";
    ASSERT_FALSE(VXmlExporter().saveAsFileStandalone(dcDataset(20000), file, "big one"));
    ASSERT_GT(std::filesystem::file_size(file), 4 * VXmlImporter::FILE_INFO_WINDOW);
    auto info = VXmlImporter().readFileInfo(file);
    ASSERT_TRUE(info.has_value()) << info.error().getMessageFormatted();
    EXPECT_EQ(info->type, "dataset");
    EXPECT_EQ(info->comment, "big one");
    EXPECT_EQ(info->generator, "lib_velmar_link");
    EXPECT_EQ(info->file_version, 4u);
}

TEST(XmlFileInfo, InfoBeyondTheFirst65536BytesIsNotRecognised) {
    TempDir dir;
    const auto text = savedText(dcDataset(2));
    const auto at = text.find("<velmar-fileinfo>");
    const std::string padded = text.substr(0, at) + "<!--" + std::string(VXmlImporter::FILE_INFO_WINDOW, '-') + "-->" +
                               text.substr(at);
    std::ofstream(dir.path() / "padded.xml", std::ios::binary) << padded;
    auto info = VXmlImporter().readFileInfo(dir.path() / "padded.xml");
    ASSERT_FALSE(info.has_value());
    EXPECT_EQ(info.error().code, INVALID);
    EXPECT_EQ(info.error().getMessageFormatted(),
              "no <velmar-fileinfo> element within the first 65536 bytes, not a standalone Velmar XML file");
    // The whole import has no such limit.
    EXPECT_TRUE(VXmlImporter().importFromFile(dir.path() / "padded.xml").has_value());
}

TEST(XmlFileInfo, UnsupportedVersionsAreReportedNotRefused) {
    const auto text = replaced(savedText(dcDataset(2)), "<file-version>4</file-version>", "<file-version>99</file-version>");
    auto info = VXmlImporter().readFileInfoFromMemory(text);
    ASSERT_TRUE(info.has_value());
    EXPECT_EQ(info->file_version, 99u);
    EXPECT_FALSE(XmlFormatVersion::is_supported(info->file_version));
}

TEST(ExportOptions, BelongToTheirExporter) {
    VXmlExporter first;
    VXmlExporter second;
    first.setGenerator("one");
    first.setCompactXml(true);
    EXPECT_EQ(second.getGenerator(), "lib_velmar_link");
    EXPECT_EQ(second.getGeneratorVersion(), "0.1");
    EXPECT_FALSE(second.producesCompactXml());
    EXPECT_EQ(VXmlImporter().readFileInfoFromMemory(first.serializeAsFileStandalone(dcDataset(1), "").value())->generator,
              "one");
}

}  // namespace
