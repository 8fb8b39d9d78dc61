// libFuzzer harness of the XML measurement file reader: any input gives an imported file or an
// ErrorObject, never a crash, a leak or a hang. What is imported is written again and read back.
// Links velmar_xml with velmar_link_json (which name each other) and their dependencies.

#include "velmar_link_json/jobs/common/dataset.hpp"
#include "xml/xml_exporter.hpp"
#include "xml/xml_importer.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    // Older and newer layouts are reached through the file's own version; the ignore option
    // lets newer ones through to the payload readers.
    const VXml::VXmlImporter importer(size % 2 == 0);
    auto imported = importer.importFromMemory(text);
    (void)importer.readFileInfoFromMemory(text);
    (void)importer.deserialize(text);
    if (imported) {
        const VXml::VXmlExporter exporter;
        auto written = exporter.serializeAsFileStandalone(*imported->object, "fuzz");
        if (written) (void)importer.importFromMemory(*written);
    }
    return 0;
}
