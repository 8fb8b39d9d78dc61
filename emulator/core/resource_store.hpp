#pragma once

#include "emulator/core/connection_peer.hpp"
#include "json_common/logging/error_object.hpp"
#include "json_common/resources/resource_type.hpp"

#include <boost/json/object.hpp>

#include <array>
#include <cstdint>
#include <expected>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::emulator {

class IdSource;

/// The resource type names in the order of their endpoints' documentation.
inline constexpr std::array<ResourceTypeEnum, 7> kAllResourceTypes{
    ResourceTypeEnum::UNDEFINED,     ResourceTypeEnum::JOB_RESULT, ResourceTypeEnum::WAVE,
    ResourceTypeEnum::CALIB_MESH,    ResourceTypeEnum::VELMAR_BINARY, ResourceTypeEnum::DEBUG_INFO,
    ResourceTypeEnum::FIRMWARE_UPDATE,
};

/// "UNDEFINED", "JOB_RESULT", ...: the first element of the resource endpoints' paths.
std::string_view resourceTypeName(ResourceTypeEnum type);
std::optional<ResourceTypeEnum> resourceTypeFromName(std::string_view name);

/// The description of one resource, as "/T/info" and "/T/list" return it.
struct ResourceInfo {
    std::string resourceId;
    std::string name;
    ResourceTypeEnum type = ResourceTypeEnum::UNDEFINED;
    std::string subType;
    std::uint64_t size = 0;
    std::string created;
    std::string createdBy;
    std::string updated;
    std::string jobId;
    boost::json::object header;
};

/// {"resource_id","name","type","sub_type","size","created","created_by","updated","job_id","header"}.
boost::json::object resourceToJson(const ResourceInfo& info);

/// A part of a resource's content read by "/T/get".
struct ResourceChunk {
    std::string bytes;
    std::uint64_t totalSize = 0;
};

/// The whole or the first `limit` bytes of a resource, shared for one binary frame.
struct ResourceDownload {
    ResourceInfo info;
    BinaryPayload payload;
};

/// In-memory resources shared by every connection.
/// Any thread: every member takes the store's mutex. Operations that address a resource by
/// id and type fail with ID_NOT_FOUND ("could not find {0} with {1} '{2}'", "resource",
/// "resource_id", id) for an unknown id and RESOURCE_TYPE_MISMATCH for a resource of
/// another type.
///
/// Every job result is also offered, read-only and under the same id, as a VELMAR_BINARY
/// resource: its "With Header" snapshot (a `.vrb` file), made of the job result's description
/// with "workstation_info" as JSON text, one 0x00 byte, and the job result's content. "info",
/// "list", "get" and "download" of VELMAR_BINARY show these snapshots beside the uploaded
/// resources of that type; the snapshot's bytes are composed when they are read.
class ResourceStore {
public:
    /// The largest chunk that "/T/get" returns; a limit of 0 means this limit.
    static constexpr std::uint64_t CHUNK_LIMIT = 1048576;

    /// Bytes charged for the description of every resource besides its name, header and
    /// other texts.
    static constexpr std::uint64_t DESCRIPTION_OVERHEAD = 256;

    /// `capacityBytes` bounds the sum of all contents; appends beyond it fail with OUT_OF_MEMORY.
    /// `descriptionCapacity` bounds the sum of the descriptions (names, headers, and
    /// DESCRIPTION_OVERHEAD each), and so the number of resources; a resource beyond it is not
    /// created (OUT_OF_MEMORY).
    explicit ResourceStore(IdSource& ids, std::uint64_t capacityBytes = 1ull << 30,
                           std::uint64_t descriptionCapacity = 64ull << 20);

    /// A new, empty resource. `createdBy` names the creator (user or component). Fails with
    /// OUT_OF_MEMORY when the descriptions are full.
    std::expected<ResourceInfo, ErrorObject> create(ResourceTypeEnum type, std::string name, std::string createdBy);

    /// A JOB_RESULT resource holding `bytes`, for the job code: `subType` is for example
    /// "DATASET_DC" or "DATASET_AC", `header` travels beside the bytes. Fails with
    /// OUT_OF_MEMORY when the contents or the descriptions are full.
    std::expected<ResourceInfo, ErrorObject> createJobResult(std::string name, std::string subType, std::string jobId,
                                                             boost::json::object header, std::string bytes);

    /// The "workstation_info" object written into the snapshots of job results.
    void setSnapshotWorkstationInfo(boost::json::object info);

    /// Appends the decoded standard Base64 text; RESOURCE_CONTENT_INVALID when malformed.
    ErrorObject appendBase64(ResourceTypeEnum type, std::string_view id, std::string_view base64);
    /// Appends raw bytes.
    ErrorObject appendBytes(ResourceTypeEnum type, std::string_view id, std::string_view bytes);

    /// At most min(limit or CHUNK_LIMIT, CHUNK_LIMIT) bytes from `offset`; empty beyond the end.
    std::expected<ResourceChunk, ErrorObject> get(ResourceTypeEnum type, std::string_view id, std::uint64_t offset,
                                                  std::uint64_t limit) const;

    /// The first `limit` bytes (all when 0), shared with the store without copying. Later
    /// appends do not disturb a download in flight: they copy the content first.
    std::expected<ResourceDownload, ErrorObject> download(ResourceTypeEnum type, std::string_view id,
                                                          std::uint64_t limit) const;

    std::expected<ResourceInfo, ErrorObject> info(ResourceTypeEnum type, std::string_view id) const;
    std::vector<ResourceInfo> list(ResourceTypeEnum type) const;
    ErrorObject remove(ResourceTypeEnum type, std::string_view id);

    /// The sum of all contents in bytes, and its bound.
    std::uint64_t usedBytes() const;
    std::uint64_t capacityBytes() const { return capacity_; }
    /// The sum of all descriptions in bytes (see DESCRIPTION_OVERHEAD).
    std::uint64_t descriptionBytes() const;

private:
    struct Entry {
        ResourceInfo info;
        std::shared_ptr<std::string> content;
        /// What the description is charged.
        std::uint64_t descriptionBytes = 0;
    };

    /// An entry to read under `type`: the entry itself, or the snapshot of a job result.
    struct Readable {
        const Entry* entry = nullptr;
        bool snapshot = false;
    };

    std::expected<Entry*, ErrorObject> find(ResourceTypeEnum type, std::string_view id);
    /// Like find, and a job result read as VELMAR_BINARY is its snapshot. Locked.
    std::expected<Readable, ErrorObject> findReadable(ResourceTypeEnum type, std::string_view id) const;
    /// The snapshot's bytes before the content: the description as JSON text and 0x00. Locked.
    std::string snapshotPrefix(const Entry& entry) const;
    /// The description of a job result's snapshot. Locked.
    ResourceInfo snapshotInfo(const Entry& entry) const;
    /// Prepares `entry` for `extra` more bytes: capacity check and copy-on-write.
    ErrorObject reserveForAppend(Entry& entry, std::uint64_t extra);
    /// Charges the description of a new entry; OUT_OF_MEMORY when it does not fit. Locked.
    ErrorObject chargeDescription(Entry& entry);

    IdSource& ids_;
    const std::uint64_t capacity_;
    const std::uint64_t descriptionCapacity_;
    mutable std::mutex mutex_;
    std::vector<Entry> entries_;  // creation order
    std::uint64_t used_ = 0;
    std::uint64_t descriptionsUsed_ = 0;
    boost::json::object snapshotWorkstationInfo_;
};

}  // namespace velmar::emulator
