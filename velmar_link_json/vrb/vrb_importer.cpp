// The "With Header" snapshot of a job result: metadata JSON, one 0x00 byte, the payload.
// The metadata is checked step by step in a fixed order (each step has its own message), and
// only then is the payload decoded: from memory with one copy into the tracks, from a file by
// reading it straight into the tracks through the result destinations of the download.

#include "velmar_link_json/vrb/vrb_importer.hpp"

#include "json_common/exact_json.hpp"
#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/library_version.hpp"
#include "json_common/protocol/live_data_eis.hpp"
#include "json_common/protocol/live_data_header.hpp"
#include "velmar_link_json/jobs/ac/eis_result_destination.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/jobs/dc/dc_result_destination.hpp"
#include "velmar_link_json/vrb/vrb_messages.hpp"

#include <boost/json.hpp>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cmath>
#include <limits>
#include <new>
#include <optional>
#include <utility>
#include <variant>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmar {

namespace json = boost::json;

namespace {

ErrorObject contentInvalid(std::string_view format, auto&&... args) {
    return ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, format, std::forward<decltype(args)>(args)...);
}

ErrorObject malformed(std::string_view format, auto&&... args) {
    return ErrorObject(ErrorCodeEnum::JSON_MALFORMED, format, std::forward<decltype(args)>(args)...);
}

ErrorObject openFailed() {
    return ErrorObject(ErrorCodeEnum::FILE_COULD_NOT_BE_OPENED, messages::VRB_FILE_OPEN_FAILED);
}

ErrorObject readFailed() { return ErrorObject(ErrorCodeEnum::FILE_COULD_NOT_BE_READ, messages::VRB_FILE_READ_FAILED); }

enum class Wanted { ANY, DC, AC };

using Imported = std::variant<DcDataset, EisDataset>;

/// The checked metadata: everything the payload decoder needs.
struct Snapshot {
    DatasetType type = DatasetType::DC;
    std::optional<LiveDataHeader> dcHeader;
    std::optional<LiveDataHeaderEis> eisHeader;
    JobInfo jobInfo;
    std::uint64_t rows = 0;
    int protocolVersion = 0;
};

/// A JSON number read as a version or count: negative values count as 0, fractions round up
/// (12.5 is above 12), values beyond the range as the largest. Nullopt for anything else.
std::optional<std::uint64_t> unsignedNumber(const json::value* value) {
    if (value == nullptr) return std::nullopt;
    if (value->is_uint64()) return value->get_uint64();
    if (value->is_int64()) return value->get_int64() < 0 ? 0 : static_cast<std::uint64_t>(value->get_int64());
    if (value->is_double()) {
        const double d = std::ceil(value->get_double());
        if (!(d > 0.0)) return 0;
        if (d >= 18446744073709551616.0) return std::numeric_limits<std::uint64_t>::max();
        return static_cast<std::uint64_t>(d);
    }
    return std::nullopt;
}

/// Steps 1 and 2 of the import on the text before the separator.
std::expected<json::object, ErrorObject> parseMetadata(std::string_view text) {
    boost::system::error_code ec;
    json::value value = parseJsonExact(text, ec);
    if (ec) return std::unexpected(malformed(messages::JSON_MALFORMED, ec.message()));
    if (!value.is_object()) return std::unexpected(malformed(messages::JSON_OBJECT_EXPECTED));
    return std::move(value.get_object());
}

/// Steps 3 to 7 before the payload is touched: size, protocol version, header, sub type, and
/// the conversion of the headers. `wanted` refuses the other kind before anything is sized.
std::expected<Snapshot, ErrorObject> checkMetadata(const json::object& meta, std::uint64_t payloadSize,
                                                   bool ignoreVersion, Wanted wanted) {
    // "size" must be a non-negative JSON integer equal to the payload's length.
    const json::value* size = meta.if_contains("size");
    std::optional<std::uint64_t> declared;
    if (size != nullptr && size->is_uint64()) declared = size->get_uint64();
    if (size != nullptr && size->is_int64() && size->get_int64() >= 0) {
        declared = static_cast<std::uint64_t>(size->get_int64());
    }
    if (declared && *declared != payloadSize) {
        return std::unexpected(contentInvalid(messages::VRB_PAYLOAD_SIZE_MISMATCH, payloadSize, *declared));
    }
    if (!declared) {
        return std::unexpected(contentInvalid(messages::VRB_PAYLOAD_SIZE_MISMATCH, payloadSize,
                                              size == nullptr ? std::string("missing") : json::serialize(*size)));
    }

    const json::value* station = meta.if_contains("workstation_info");
    if (station == nullptr || !station->is_object()) {
        return std::unexpected(contentInvalid(messages::VRB_WORKSTATION_INFO_MISSING));
    }
    const auto version = unsignedNumber(station->get_object().if_contains("protocol_version"));
    if (!version) return std::unexpected(contentInvalid(messages::VRB_PROTOCOL_VERSION_MISSING));
    if (*version != 0 && *version > ProtocolVersion::library() && !ignoreVersion) {
        return std::unexpected(
            ErrorObject(ErrorCodeEnum::PROTOCOL_VERSION_MISMATCH, messages::PROTOCOL_VERSION_MISMATCH));
    }

    const json::value* header = meta.if_contains("header");
    if (header == nullptr || !header->is_object()) return std::unexpected(malformed(messages::VRB_HEADER_NOT_OBJECT));
    const json::object& headerObject = header->get_object();
    const json::value* dataHeader = headerObject.if_contains("job_data_header");
    if (dataHeader == nullptr || !dataHeader->is_object()) {
        return std::unexpected(malformed(messages::VRB_JOB_DATA_HEADER_NOT_OBJECT));
    }
    Snapshot snapshot;
    snapshot.protocolVersion = static_cast<int>(std::min<std::uint64_t>(*version, INT_MAX));
    if (const json::value* jobInfo = headerObject.if_contains("job_info")) {
        try {
            snapshot.jobInfo = jobInfoFromJson(*jobInfo);
        } catch (const std::exception&) {
            return std::unexpected(malformed(messages::RESULT_HEADER_UNPARSABLE));
        }
    }
    if (const json::value* rows = headerObject.if_contains("number_of_rows")) {
        auto converted = json::try_value_to<std::uint64_t>(*rows);
        if (!converted) return std::unexpected(malformed(messages::RESULT_HEADER_UNPARSABLE));
        snapshot.rows = *converted;
    }

    const json::value* subType = meta.if_contains("sub_type");
    if (subType == nullptr || !subType->is_string()) {
        return std::unexpected(contentInvalid(messages::VRB_SUB_TYPE_NOT_STRING));
    }
    const std::string_view kind = subType->get_string();
    if (kind == "DATASET_DC") {
        snapshot.type = DatasetType::DC;
    } else if (kind == "DATASET_AC") {
        snapshot.type = DatasetType::AC;
    } else {
        return std::unexpected(contentInvalid(messages::VRB_SUB_TYPE_UNSUPPORTED, kind));
    }
    if ((wanted == Wanted::DC && snapshot.type != DatasetType::DC) ||
        (wanted == Wanted::AC && snapshot.type != DatasetType::AC)) {
        return std::unexpected(VrbImporter::makeTypeMismatchError());
    }
    if (snapshot.type == DatasetType::DC) {
        auto converted = liveDataHeaderFromJson(*dataHeader);
        if (!converted) return std::unexpected(std::move(converted).error());
        snapshot.dcHeader = std::move(*converted);
    } else {
        try {
            snapshot.eisHeader = json::value_to<LiveDataHeaderEis>(*dataHeader);
        } catch (const std::exception&) {
            return std::unexpected(malformed(messages::RESULT_HEADER_UNPARSABLE));
        }
    }
    return snapshot;
}

std::expected<Imported, ErrorObject> decodePayload(Snapshot&& snapshot, std::string_view payload) {
    if (snapshot.type == DatasetType::DC) {
        return dcDatasetFromBinary(payload, std::move(*snapshot.dcHeader), std::move(snapshot.jobInfo));
    }
    auto dataset = eisDatasetFromBinary(payload, std::move(*snapshot.eisHeader), snapshot.rows,
                                        std::move(snapshot.jobInfo), snapshot.protocolVersion);
    if (!dataset) return std::unexpected(std::move(dataset).error());
    return std::move(*dataset);
}

/// A snapshot in memory cut at its first 0x00 byte: the parsed metadata and the payload.
struct SplitSnapshot {
    json::object meta;
    std::string_view payload;
};

/// Steps 1 and 2 on bytes in memory.
std::expected<SplitSnapshot, ErrorObject> splitSnapshot(std::string_view data) {
    const auto separator = data.find('\0');
    if (separator == std::string_view::npos) return std::unexpected(contentInvalid(messages::VRB_SEPARATOR_MISSING));
    auto meta = parseMetadata(data.substr(0, separator));
    if (!meta) return std::unexpected(std::move(meta).error());
    return SplitSnapshot{std::move(*meta), data.substr(separator + 1)};
}

std::expected<Imported, ErrorObject> importBytes(std::string_view data, bool ignoreVersion, Wanted wanted) {
    auto split = splitSnapshot(data);
    if (!split) return std::unexpected(std::move(split).error());
    auto snapshot = checkMetadata(split->meta, split->payload.size(), ignoreVersion, wanted);
    if (!snapshot) return std::unexpected(std::move(snapshot).error());
    return decodePayload(std::move(*snapshot), split->payload);
}

/// A file opened for reading with its length; closed on destruction.
class InputFile {
public:
    static std::expected<InputFile, ErrorObject> open(const std::filesystem::path& path) {
        InputFile file;
        file.fd_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (file.fd_ < 0) {
            if (errno == ENOENT || errno == ENOTDIR) {
                return std::unexpected(
                    ErrorObject(ErrorCodeEnum::FILE_NOT_FOUND, messages::VRB_FILE_NOT_FOUND, path.string()));
            }
            return std::unexpected(openFailed());
        }
        struct stat status{};
        if (::fstat(file.fd_, &status) != 0 || !S_ISREG(status.st_mode)) {
            return std::unexpected(openFailed());
        }
        if (status.st_size == 0) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::FILE_IS_EMPTY, messages::VRB_FILE_IS_EMPTY, path.string()));
        }
        file.size_ = static_cast<std::uint64_t>(status.st_size);
        return file;
    }

    InputFile(InputFile&& other) noexcept : fd_(std::exchange(other.fd_, -1)), size_(other.size_) {}
    InputFile& operator=(InputFile&&) = delete;
    ~InputFile() {
        if (fd_ >= 0) ::close(fd_);
    }

    std::uint64_t size() const { return size_; }

    /// Reads up to `count` bytes, fewer only at the end of the file.
    std::expected<std::size_t, ErrorObject> read(void* out, std::size_t count) {
        std::size_t done = 0;
        while (done < count) {
            const auto n = ::read(fd_, static_cast<char*>(out) + done, std::min<std::size_t>(count - done, SSIZE_MAX));
            if (n < 0 && errno == EINTR) continue;
            if (n < 0) return std::unexpected(readFailed());
            if (n == 0) break;
            done += static_cast<std::size_t>(n);
        }
        return done;
    }

private:
    InputFile() = default;
    int fd_ = -1;
    std::uint64_t size_ = 0;
};

/// Reads the payload into the destination: first the bytes already read behind the
/// separator, then the file straight into the storage that the destination offers, until it
/// takes no more (trailing bytes stay unread).
ErrorObject fillFromFile(BinaryDestination& destination, InputFile& file, std::string_view head,
                         std::uint64_t payloadSize) {
    destination.begin(payloadSize, true);
    head = head.substr(0, static_cast<std::size_t>(std::min<std::uint64_t>(head.size(), payloadSize)));
    destination.store(head.data(), head.size());
    std::uint64_t done = head.size();
    while (done < payloadSize) {
        const auto storage = destination.prepare();
        if (storage.empty()) break;
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(storage.size(), payloadSize - done));
        auto n = file.read(storage.data(), wanted);
        if (!n) return std::move(n).error();
        if (*n != wanted) return readFailed();
        destination.commit(*n);
        done += *n;
    }
    destination.received = payloadSize;
    destination.filled = true;
    return {};
}

std::expected<Imported, ErrorObject> importFile(const std::filesystem::path& path, bool ignoreVersion, Wanted wanted) {
    auto file = InputFile::open(path);
    if (!file) return std::unexpected(std::move(file).error());
    // The metadata and the first payload bytes: a window, doubled until the separator shows.
    std::string head;
    std::size_t separator = std::string::npos;
    while (separator == std::string::npos) {
        const std::uint64_t left = file->size() > head.size() ? file->size() - head.size() : 0;
        const std::size_t step = left == 0 ? VrbImporter::FILE_INFO_WINDOW
                                           : static_cast<std::size_t>(std::min<std::uint64_t>(
                                                 std::max(head.size(), VrbImporter::FILE_INFO_WINDOW), left));
        const std::size_t old = head.size();
        head.resize(old + step);
        auto n = file->read(head.data() + old, step);
        if (!n) return std::unexpected(std::move(n).error());
        head.resize(old + *n);
        if (*n == 0) break;
        separator = head.find('\0', old);
    }
    if (separator == std::string::npos) return std::unexpected(contentInvalid(messages::VRB_SEPARATOR_MISSING));
    auto meta = parseMetadata(std::string_view(head).substr(0, separator));
    if (!meta) return std::unexpected(std::move(meta).error());
    if (file->size() <= separator) return std::unexpected(readFailed());
    const std::uint64_t payloadSize = file->size() - separator - 1;
    auto snapshot = checkMetadata(*meta, payloadSize, ignoreVersion, wanted);
    if (!snapshot) return std::unexpected(std::move(snapshot).error());
    const std::string_view inHead = std::string_view(head).substr(separator + 1);

    if (snapshot->type == DatasetType::DC) {
        DcResultDestination destination(snapshot->dcHeader->columns.size(), std::nullopt);
        if (auto failure = fillFromFile(destination, *file, inHead, payloadSize)) {
            return std::unexpected(std::move(failure));
        }
        auto dataset = destination.takeDataset(std::move(*snapshot->dcHeader), std::move(snapshot->jobInfo));
        if (!dataset) return std::unexpected(std::move(dataset).error());
        return std::move(*dataset);
    }
    EisResultDestination destination(*snapshot->eisHeader, snapshot->rows);
    if (auto failure = fillFromFile(destination, *file, inHead, payloadSize)) {
        return std::unexpected(std::move(failure));
    }
    auto dataset = destination.takeDataset(std::move(*snapshot->eisHeader), std::move(snapshot->jobInfo),
                                           snapshot->protocolVersion);
    if (!dataset) return std::unexpected(std::move(dataset).error());
    return std::move(*dataset);
}

VrbFileInfo fileInfoOf(const json::object& meta) {
    VrbFileInfo info;
    if (const auto* subType = meta.if_contains("sub_type"); subType != nullptr && subType->is_string()) {
        info.sub_type = subType->get_string();
    }
    if (const auto* name = meta.if_contains("name"); name != nullptr && name->is_string()) {
        info.name = name->get_string();
    }
    info.size = unsignedNumber(meta.if_contains("size")).value_or(0);
    if (const auto* station = meta.if_contains("workstation_info"); station != nullptr && station->is_object()) {
        info.protocol_version = unsignedNumber(station->get_object().if_contains("protocol_version")).value_or(0);
    }
    if (const auto* header = meta.if_contains("header"); header != nullptr && header->is_object()) {
        info.number_of_rows = unsignedNumber(header->get_object().if_contains("number_of_rows")).value_or(0);
    }
    return info;
}

/// Runs an import step; memory exhaustion (a payload larger than the memory) becomes
/// OUT_OF_MEMORY instead of an exception, so that nothing is thrown to the caller.
template <class Step>
auto guarded(Step&& step) -> decltype(step()) {
    try {
        return step();
    } catch (const std::bad_alloc&) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::OUT_OF_MEMORY, messages::OUT_OF_MEMORY));
    } catch (const std::exception& e) {
        return std::unexpected(
            ErrorObject(ErrorCodeEnum::UNEXPECTED_EXCEPTION, messages::UNEXPECTED_EXCEPTION, e.what()));
    }
}

std::expected<std::shared_ptr<DataSet>, ErrorObject> shared(std::expected<Imported, ErrorObject>&& imported) {
    if (!imported) return std::unexpected(std::move(imported).error());
    return std::visit(
        [](auto&& dataset) -> std::shared_ptr<DataSet> {
            using T = std::remove_cvref_t<decltype(dataset)>;
            return std::make_shared<T>(std::move(dataset));
        },
        std::move(*imported));
}

template <class T>
std::expected<T, ErrorObject> typed(std::expected<Imported, ErrorObject>&& imported) {
    if (!imported) return std::unexpected(std::move(imported).error());
    if (auto* dataset = std::get_if<T>(&*imported)) return std::move(*dataset);
    return std::unexpected(VrbImporter::makeTypeMismatchError());
}

}  // namespace

ErrorObject VrbImporter::makeTypeMismatchError() { return contentInvalid(messages::VRB_TYPE_MISMATCH); }

std::expected<std::shared_ptr<DataSet>, ErrorObject> VrbImporter::importFromMemory(std::string_view data) const {
    return guarded([&] { return shared(importBytes(data, ignoreProtocolVersionMismatch_, Wanted::ANY)); });
}

std::expected<std::shared_ptr<DataSet>, ErrorObject> VrbImporter::importFromFile(
    const std::filesystem::path& file) const {
    return guarded([&] { return shared(importFile(file, ignoreProtocolVersionMismatch_, Wanted::ANY)); });
}

std::expected<DcDataset, ErrorObject> VrbImporter::importFromMemoryAsDcDataset(std::string_view data) const {
    return guarded([&] { return typed<DcDataset>(importBytes(data, ignoreProtocolVersionMismatch_, Wanted::DC)); });
}

std::expected<EisDataset, ErrorObject> VrbImporter::importFromMemoryAsEisDataset(std::string_view data) const {
    return guarded([&] { return typed<EisDataset>(importBytes(data, ignoreProtocolVersionMismatch_, Wanted::AC)); });
}

std::expected<DcDataset, ErrorObject> VrbImporter::importFromFileAsDcDataset(const std::filesystem::path& file) const {
    return guarded([&] { return typed<DcDataset>(importFile(file, ignoreProtocolVersionMismatch_, Wanted::DC)); });
}

std::expected<EisDataset, ErrorObject> VrbImporter::importFromFileAsEisDataset(
    const std::filesystem::path& file) const {
    return guarded([&] { return typed<EisDataset>(importFile(file, ignoreProtocolVersionMismatch_, Wanted::AC)); });
}

std::expected<VrbFileInfo, ErrorObject> VrbImporter::readFileInfoFromMemory(std::string_view data) const {
    return guarded([&]() -> std::expected<VrbFileInfo, ErrorObject> {
        auto split = splitSnapshot(data);
        if (!split) return std::unexpected(std::move(split).error());
        return fileInfoOf(split->meta);
    });
}

std::expected<VrbFileInfo, ErrorObject> VrbImporter::readFileInfo(const std::filesystem::path& path) const {
    return guarded([&]() -> std::expected<VrbFileInfo, ErrorObject> {
        auto file = InputFile::open(path);
        if (!file) return std::unexpected(std::move(file).error());
        std::string window(static_cast<std::size_t>(std::min<std::uint64_t>(file->size(), FILE_INFO_WINDOW)), '\0');
        auto n = file->read(window.data(), window.size());
        if (!n) return std::unexpected(std::move(n).error());
        window.resize(*n);
        const auto separator = window.find('\0');
        if (separator == std::string::npos) {
            return std::unexpected(
                contentInvalid(messages::VRB_SEPARATOR_NOT_IN_WINDOW, std::uint64_t{FILE_INFO_WINDOW}));
        }
        auto meta = parseMetadata(std::string_view(window).substr(0, separator));
        if (!meta) return std::unexpected(std::move(meta).error());
        return fileInfoOf(*meta);
    });
}

}  // namespace velmar
