// Any bytes given to the `.vrb` importer give a dataset or an ErrorObject: from memory, from a
// file (an in-memory file read through the result destinations), the typed forms and the
// summary, with and without the protocol-version check. An imported dataset is written back
// to its binary form, so that its shape invariants are exercised too.

#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"
#include "velmar_link_json/vrb/vrb_importer.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <sys/mman.h>
#include <unistd.h>

namespace {

void writeBack(const velmar::DataSet& dataset) {
    (void)dataset.getInfo();
    if (const auto* dc = dynamic_cast<const velmar::DcDataset*>(&dataset)) (void)velmar::dcDatasetToBinary(*dc);
    if (const auto* eis = dynamic_cast<const velmar::EisDataset*>(&dataset)) (void)velmar::eisDatasetToBinary(*eis);
}

/// An anonymous in-memory file holding the bytes; -1 when it cannot be made.
int memoryFile(std::string_view bytes) {
    const int fd = ::memfd_create("vrb_fuzz", MFD_CLOEXEC);
    if (fd < 0) return -1;
    std::size_t done = 0;
    while (done < bytes.size()) {
        const auto n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n <= 0) {
            ::close(fd);
            return -1;
        }
        done += static_cast<std::size_t>(n);
    }
    return fd;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const bool ignoreVersion : {false, true}) {
        const velmar::VrbImporter importer(ignoreVersion);
        if (auto imported = importer.importFromMemory(bytes)) writeBack(**imported);
        (void)importer.importFromMemoryAsDcDataset(bytes);
        (void)importer.importFromMemoryAsEisDataset(bytes);
        (void)importer.readFileInfoFromMemory(bytes);
    }
    if (const int fd = memoryFile(bytes); fd >= 0) {
        const std::string path = "/proc/self/fd/" + std::to_string(fd);
        const velmar::VrbImporter importer(true);
        if (auto imported = importer.importFromFile(path)) writeBack(**imported);
        (void)importer.readFileInfo(path);
        ::close(fd);
    }
    return 0;
}
