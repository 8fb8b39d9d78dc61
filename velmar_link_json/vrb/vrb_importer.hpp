#pragma once

#include "json_common/logging/error_object.hpp"
#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "velmar_link_json/jobs/common/dataset.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace velmar {

/// What the metadata of a `.vrb` snapshot says about its payload, read without the payload.
/// Keys that are missing or of another kind keep the defaults.
struct VrbFileInfo {
    /// "DATASET_DC" or "DATASET_AC".
    std::string sub_type;
    /// The resource name.
    std::string name;
    /// The declared payload length in bytes.
    std::uint64_t size = 0;
    /// The protocol version of the workstation that wrote the file.
    std::uint64_t protocol_version = 0;
    std::uint64_t number_of_rows = 0;
};

/// Imports the "With Header" snapshot of a job result (`.vrb`): the resource's metadata as a
/// JSON object, one 0x00 byte, then exactly "size" bytes of the dataset's flat binary form.
/// "DATASET_DC" gives a DcDataset, "DATASET_AC" an EisDataset. Files of a newer protocol
/// version than the library's are refused with PROTOCOL_VERSION_MISMATCH unless the
/// importer ignores the mismatch; older ones are read with the layout of their version.
///
/// Every failure is an ErrorObject, nothing is thrown, and no partial dataset is returned:
/// RESOURCE_CONTENT_INVALID (no separator, payload length other than "size", missing
/// protocol version, "sub_type" missing or unsupported, a payload that does not fit the
/// header), JSON_MALFORMED (metadata that is not a JSON object, "header" or its
/// "job_data_header" missing, a header that cannot be converted), PROTOCOL_VERSION_MISMATCH,
/// and for files FILE_NOT_FOUND, FILE_COULD_NOT_BE_OPENED, FILE_COULD_NOT_BE_READ,
/// FILE_IS_EMPTY. Nothing is allocated from a number in the metadata alone: the tracks are
/// sized from the payload that is there.
///
/// Single-threaded per instance; the instance holds only its option.
class VrbImporter {
public:
    /// How much of a file readFileInfo reads at most.
    static constexpr std::size_t FILE_INFO_WINDOW = 65536;

    explicit VrbImporter(bool ignoreProtocolVersionMismatch = false)
        : ignoreProtocolVersionMismatch_(ignoreProtocolVersionMismatch) {}

    void setIgnoreProtocolVersionMismatch(bool ignore) { ignoreProtocolVersionMismatch_ = ignore; }
    bool getIgnoreProtocolVersionMismatch() const { return ignoreProtocolVersionMismatch_; }

    /// The dataset of the snapshot held in `data`; the payload is copied once, into the tracks.
    [[nodiscard]] std::expected<std::shared_ptr<DataSet>, ErrorObject> importFromMemory(std::string_view data) const;
    /// The dataset of the snapshot file: the metadata is read first, then the payload straight
    /// into the tracks (and waves).
    [[nodiscard]] std::expected<std::shared_ptr<DataSet>, ErrorObject> importFromFile(
        const std::filesystem::path& file) const;

    /// Typed forms: a snapshot of the other kind fails with makeTypeMismatchError() before its
    /// payload is decoded.
    [[nodiscard]] std::expected<DcDataset, ErrorObject> importFromMemoryAsDcDataset(std::string_view data) const;
    [[nodiscard]] std::expected<EisDataset, ErrorObject> importFromMemoryAsEisDataset(std::string_view data) const;
    [[nodiscard]] std::expected<DcDataset, ErrorObject> importFromFileAsDcDataset(
        const std::filesystem::path& file) const;
    [[nodiscard]] std::expected<EisDataset, ErrorObject> importFromFileAsEisDataset(
        const std::filesystem::path& file) const;

    /// The metadata's summary (separator and JSON checks as in the import, nothing else).
    [[nodiscard]] std::expected<VrbFileInfo, ErrorObject> readFileInfoFromMemory(std::string_view data) const;
    /// Same for a file, of which at most FILE_INFO_WINDOW bytes are read: a file whose
    /// separator lies beyond them is refused (RESOURCE_CONTENT_INVALID), whatever its size.
    [[nodiscard]] std::expected<VrbFileInfo, ErrorObject> readFileInfo(const std::filesystem::path& file) const;

    /// "imported dataset type does not match the requested type" (RESOURCE_CONTENT_INVALID).
    static ErrorObject makeTypeMismatchError();

private:
    bool ignoreProtocolVersionMismatch_ = false;
};

}  // namespace velmar
