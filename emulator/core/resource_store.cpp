#include "emulator/core/resource_store.hpp"

#include "emulator/core/emulator_messages.hpp"
#include "emulator/core/id_source.hpp"
#include "json_common/base64.hpp"
#include "json_common/logging/error_messages.hpp"

#include <boost/json.hpp>

#include <algorithm>
#include <cstring>

namespace velmar::emulator {

std::string_view resourceTypeName(ResourceTypeEnum type) {
    switch (type) {
    case ResourceTypeEnum::UNDEFINED: return "UNDEFINED";
    case ResourceTypeEnum::FIRMWARE_UPDATE: return "FIRMWARE_UPDATE";
    case ResourceTypeEnum::WAVE: return "WAVE";
    case ResourceTypeEnum::CALIB_MESH: return "CALIB_MESH";
    case ResourceTypeEnum::VELMAR_BINARY: return "VELMAR_BINARY";
    case ResourceTypeEnum::DEBUG_INFO: return "DEBUG_INFO";
    case ResourceTypeEnum::JOB_RESULT: return "JOB_RESULT";
    }
    return "UNDEFINED";
}

std::optional<ResourceTypeEnum> resourceTypeFromName(std::string_view name) {
    for (auto type : kAllResourceTypes) {
        if (resourceTypeName(type) == name) return type;
    }
    return std::nullopt;
}

boost::json::object resourceToJson(const ResourceInfo& info) {
    return boost::json::object{
        {"resource_id", info.resourceId},
        {"name", info.name},
        {"type", resourceTypeName(info.type)},
        {"sub_type", info.subType},
        {"size", info.size},
        {"created", info.created},
        {"created_by", info.createdBy},
        {"updated", info.updated},
        {"job_id", info.jobId},
        {"header", info.header},
    };
}

namespace {

ErrorObject notFound(std::string_view id) {
    return ErrorObject(ErrorCodeEnum::ID_NOT_FOUND, velmar::messages::ID_NOT_FOUND, "resource", "resource_id", id);
}

ErrorObject typeMismatch(std::string_view id, ResourceTypeEnum actual, ResourceTypeEnum requested) {
    return ErrorObject(ErrorCodeEnum::RESOURCE_TYPE_MISMATCH, messages::RESOURCE_TYPE_MISMATCH, id,
                       resourceTypeName(actual), resourceTypeName(requested));
}

/// Appends to `out` the bytes of `text` from `offset` on, until `out` holds `length` bytes.
/// `offset` counts from the start of `text`; offsets beyond it take nothing.
void appendSlice(std::string& out, std::string_view text, std::uint64_t offset, std::uint64_t length) {
    if (offset >= text.size() || out.size() >= length) return;
    out.append(text.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(length - out.size())));
}

}  // namespace

ResourceStore::ResourceStore(IdSource& ids, std::uint64_t capacityBytes, std::uint64_t descriptionCapacity)
    : ids_(ids), capacity_(capacityBytes), descriptionCapacity_(descriptionCapacity) {}

ErrorObject ResourceStore::chargeDescription(Entry& entry) {
    const auto& info = entry.info;
    entry.descriptionBytes = DESCRIPTION_OVERHEAD + info.name.size() + info.createdBy.size() + info.subType.size() +
                             info.jobId.size() + (info.header.empty() ? 0 : boost::json::serialize(info.header).size());
    if (entry.descriptionBytes > descriptionCapacity_ - descriptionsUsed_) {
        return ErrorObject(ErrorCodeEnum::OUT_OF_MEMORY, messages::RESOURCE_DESCRIPTIONS_FULL, entry.descriptionBytes,
                           descriptionCapacity_ - descriptionsUsed_);
    }
    descriptionsUsed_ += entry.descriptionBytes;
    return {};
}

std::expected<ResourceInfo, ErrorObject> ResourceStore::create(ResourceTypeEnum type, std::string name,
                                                               std::string createdBy) {
    const auto now = isoUtcNow();
    Entry entry{.info = {}, .content = std::make_shared<std::string>()};
    entry.info.resourceId = ids_.uuid();
    entry.info.name = std::move(name);
    entry.info.type = type;
    entry.info.created = now;
    entry.info.createdBy = std::move(createdBy);
    entry.info.updated = now;
    std::lock_guard lock(mutex_);
    if (auto error = chargeDescription(entry)) return std::unexpected(std::move(error));
    entries_.push_back(std::move(entry));
    return entries_.back().info;
}

std::expected<ResourceInfo, ErrorObject> ResourceStore::createJobResult(std::string name, std::string subType,
                                                                        std::string jobId, boost::json::object header,
                                                                        std::string bytes) {
    const auto now = isoUtcNow();
    Entry entry{
        .info = {.resourceId = ids_.uuid(),
                 .name = std::move(name),
                 .type = ResourceTypeEnum::JOB_RESULT,
                 .subType = std::move(subType),
                 .size = bytes.size(),
                 .created = now,
                 .createdBy = "emulator",
                 .updated = now,
                 .jobId = std::move(jobId),
                 .header = std::move(header)},
        .content = std::make_shared<std::string>(std::move(bytes)),
    };
    std::lock_guard lock(mutex_);
    if (entry.content->size() > capacity_ - used_) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::OUT_OF_MEMORY, messages::RESOURCE_STORE_FULL,
                                           std::uint64_t{entry.content->size()}, capacity_ - used_));
    }
    if (auto error = chargeDescription(entry)) return std::unexpected(std::move(error));
    used_ += entry.content->size();
    entries_.push_back(std::move(entry));
    return entries_.back().info;
}

std::expected<ResourceStore::Entry*, ErrorObject> ResourceStore::find(ResourceTypeEnum type, std::string_view id) {
    auto it = std::ranges::find(entries_, id, [](const Entry& e) -> std::string_view { return e.info.resourceId; });
    if (it == entries_.end()) return std::unexpected(notFound(id));
    if (it->info.type != type) return std::unexpected(typeMismatch(id, it->info.type, type));
    return &*it;
}

std::expected<ResourceStore::Readable, ErrorObject> ResourceStore::findReadable(ResourceTypeEnum type,
                                                                                std::string_view id) const {
    auto it = std::ranges::find(entries_, id, [](const Entry& e) -> std::string_view { return e.info.resourceId; });
    if (it == entries_.end()) return std::unexpected(notFound(id));
    if (it->info.type == type) return Readable{.entry = &*it, .snapshot = false};
    if (type == ResourceTypeEnum::VELMAR_BINARY && it->info.type == ResourceTypeEnum::JOB_RESULT) {
        return Readable{.entry = &*it, .snapshot = true};
    }
    return std::unexpected(typeMismatch(id, it->info.type, type));
}

std::string ResourceStore::snapshotPrefix(const Entry& entry) const {
    auto description = resourceToJson(entry.info);
    description["workstation_info"] = snapshotWorkstationInfo_;
    std::string prefix = boost::json::serialize(description);
    prefix.push_back('\0');
    return prefix;
}

ResourceInfo ResourceStore::snapshotInfo(const Entry& entry) const {
    ResourceInfo info = entry.info;
    info.type = ResourceTypeEnum::VELMAR_BINARY;
    info.name += ".vrb";
    info.size = snapshotPrefix(entry).size() + entry.content->size();
    return info;
}

void ResourceStore::setSnapshotWorkstationInfo(boost::json::object info) {
    std::lock_guard lock(mutex_);
    snapshotWorkstationInfo_ = std::move(info);
}

ErrorObject ResourceStore::reserveForAppend(Entry& entry, std::uint64_t extra) {
    if (extra > capacity_ - used_) {
        return ErrorObject(ErrorCodeEnum::OUT_OF_MEMORY, messages::RESOURCE_STORE_FULL, extra, capacity_ - used_);
    }
    // A download in flight shares the content; it keeps the old bytes and this append
    // works on a copy, so the frame being written is never reallocated underneath.
    if (entry.content.use_count() > 1) entry.content = std::make_shared<std::string>(*entry.content);
    return {};
}

ErrorObject ResourceStore::appendBase64(ResourceTypeEnum type, std::string_view id, std::string_view base64) {
    std::lock_guard lock(mutex_);
    auto entry = find(type, id);
    if (!entry) return entry.error();
    const auto extra = base64.size() % 4 == 0 ? decodedBase64Size(base64) : 0;
    if (auto error = reserveForAppend(**entry, extra)) return error;
    auto& content = *(*entry)->content;
    const auto oldSize = content.size();
    content.resize(oldSize + extra);
    if (base64.size() % 4 != 0 || !decodeBase64Into(base64, content.data() + oldSize)) {
        content.resize(oldSize);
        auto decoded = decodeBase64(base64);
        return ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, messages::RESOURCE_DATA_INVALID,
                           decoded ? std::string("unexpected length") : decoded.error());
    }
    used_ += extra;
    (*entry)->info.size = content.size();
    (*entry)->info.updated = isoUtcNow();
    return {};
}

ErrorObject ResourceStore::appendBytes(ResourceTypeEnum type, std::string_view id, std::string_view bytes) {
    std::lock_guard lock(mutex_);
    auto entry = find(type, id);
    if (!entry) return entry.error();
    if (auto error = reserveForAppend(**entry, bytes.size())) return error;
    (*entry)->content->append(bytes);
    used_ += bytes.size();
    (*entry)->info.size = (*entry)->content->size();
    (*entry)->info.updated = isoUtcNow();
    return {};
}

std::expected<ResourceChunk, ErrorObject> ResourceStore::get(ResourceTypeEnum type, std::string_view id,
                                                             std::uint64_t offset, std::uint64_t limit) const {
    std::lock_guard lock(mutex_);
    auto found = findReadable(type, id);
    if (!found) return std::unexpected(std::move(found.error()));
    const std::string& content = *found->entry->content;
    const std::string prefix = found->snapshot ? snapshotPrefix(*found->entry) : std::string();
    const std::uint64_t length = limit == 0 ? CHUNK_LIMIT : std::min(limit, CHUNK_LIMIT);
    ResourceChunk chunk;
    chunk.totalSize = prefix.size() + content.size();
    // The bytes are the prefix followed by the content; the chunk may span both.
    appendSlice(chunk.bytes, prefix, offset, length);
    if (offset + chunk.bytes.size() >= prefix.size()) {
        appendSlice(chunk.bytes, content, offset + chunk.bytes.size() - prefix.size(), length);
    }
    return chunk;
}

std::expected<ResourceDownload, ErrorObject> ResourceStore::download(ResourceTypeEnum type, std::string_view id,
                                                                     std::uint64_t limit) const {
    std::lock_guard lock(mutex_);
    auto found = findReadable(type, id);
    if (!found) return std::unexpected(std::move(found.error()));
    const Entry& entry = *found->entry;
    std::shared_ptr<const std::string> content = entry.content;
    if (found->snapshot) {
        // Composed for this download only; the job result's content stays shared with the store.
        auto bytes = std::make_shared<std::string>(snapshotPrefix(entry));
        bytes->append(*entry.content);
        content = std::move(bytes);
    }
    const std::uint64_t size = limit == 0 ? content->size() : std::min<std::uint64_t>(limit, content->size());
    return ResourceDownload{.info = found->snapshot ? snapshotInfo(entry) : entry.info,
                            .payload = {.owner = std::move(content), .size = size}};
}

std::expected<ResourceInfo, ErrorObject> ResourceStore::info(ResourceTypeEnum type, std::string_view id) const {
    std::lock_guard lock(mutex_);
    auto found = findReadable(type, id);
    if (!found) return std::unexpected(std::move(found.error()));
    return found->snapshot ? snapshotInfo(*found->entry) : found->entry->info;
}

std::vector<ResourceInfo> ResourceStore::list(ResourceTypeEnum type) const {
    std::lock_guard lock(mutex_);
    std::vector<ResourceInfo> out;
    for (const auto& entry : entries_) {
        if (entry.info.type == type) {
            out.push_back(entry.info);
        } else if (type == ResourceTypeEnum::VELMAR_BINARY && entry.info.type == ResourceTypeEnum::JOB_RESULT) {
            out.push_back(snapshotInfo(entry));
        }
    }
    return out;
}

ErrorObject ResourceStore::remove(ResourceTypeEnum type, std::string_view id) {
    std::lock_guard lock(mutex_);
    auto entry = find(type, id);
    if (!entry) return entry.error();
    used_ -= (*entry)->content->size();
    descriptionsUsed_ -= (*entry)->descriptionBytes;
    entries_.erase(entries_.begin() + (*entry - entries_.data()));
    return {};
}

std::uint64_t ResourceStore::usedBytes() const {
    std::lock_guard lock(mutex_);
    return used_;
}

std::uint64_t ResourceStore::descriptionBytes() const {
    std::lock_guard lock(mutex_);
    return descriptionsUsed_;
}

}  // namespace velmar::emulator
