#pragma once

#include "json_common/resources/resource_type.hpp"

#include <boost/json/object.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmar {

/// The description of one device resource (an uploaded wave, a job result, ...), as
/// "/<TYPE>/create", "/<TYPE>/info" and "/<TYPE>/list" return it. The JSON keys are the
/// member names; "type" is the ResourceTypeEnum name.
struct Resource {
    /// The largest chunk that one "/<TYPE>/get" or "/<TYPE>/append" carries, in bytes.
    static constexpr std::uint64_t DATA_CHUNK_SIZE_LIMIT = 1048576;

    std::string resource_id;
    std::string name;
    ResourceTypeEnum type = ResourceTypeEnum::UNDEFINED;
    std::string sub_type;
    std::uint64_t size = 0;
    std::string created;
    std::string created_by;
    std::string updated;
    std::string job_id;
    boost::json::object header;

    const std::string& getId() const { return resource_id; }
    const std::string& getName() const { return name; }
    const std::string& getCreationDate() const { return created; }
    const std::string& getLastUpdatedDate() const { return updated; }
};

/// "UNDEFINED", "FIRMWARE_UPDATE", "WAVE", "CALIB_MESH", "VELMAR_BINARY", "DEBUG_INFO", "JOB_RESULT".
std::string_view resourceTypeName(ResourceTypeEnum type);
/// Exact comparison; nullopt for any other text.
std::optional<ResourceTypeEnum> resourceTypeFromName(std::string_view name);

/// Writes every member. Reading takes every key that is present; a key of the wrong JSON kind
/// or an unknown type name throws std::invalid_argument.
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const Resource& resource);
Resource tag_invoke(const boost::json::value_to_tag<Resource>&, const boost::json::value& jv);

}  // namespace velmar
