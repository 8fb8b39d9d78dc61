#include "json_common/resources/resource.hpp"

#include "json_common/enum_names.hpp"

#include <boost/json.hpp>

#include <stdexcept>

namespace velmar {

namespace json = boost::json;

namespace {

void readString(const json::object& object, std::string_view key, std::string& out) {
    const auto* value = object.if_contains(key);
    if (value == nullptr) return;
    const auto* text = value->if_string();
    if (text == nullptr) throw std::invalid_argument("'" + std::string(key) + "' is not a string");
    out.assign(text->data(), text->size());
}

}  // namespace

std::string_view resourceTypeName(ResourceTypeEnum type) {
    const auto name = enumName(type);
    return name.empty() ? enumName(ResourceTypeEnum::UNDEFINED) : name;
}

std::optional<ResourceTypeEnum> resourceTypeFromName(std::string_view name) {
    return enumFromName<ResourceTypeEnum>(name);
}

void tag_invoke(const json::value_from_tag&, json::value& jv, const Resource& resource) {
    jv = json::object{
        {"resource_id", resource.resource_id},
        {"name", resource.name},
        {"type", resourceTypeName(resource.type)},
        {"sub_type", resource.sub_type},
        {"size", resource.size},
        {"created", resource.created},
        {"created_by", resource.created_by},
        {"updated", resource.updated},
        {"job_id", resource.job_id},
        {"header", resource.header},
    };
}

Resource tag_invoke(const json::value_to_tag<Resource>&, const json::value& jv) {
    const auto* object = jv.if_object();
    if (object == nullptr) throw std::invalid_argument("'resource' is not an object");
    Resource resource;
    readString(*object, "resource_id", resource.resource_id);
    readString(*object, "name", resource.name);
    std::string typeName;
    readString(*object, "type", typeName);
    if (!typeName.empty()) {
        const auto type = resourceTypeFromName(typeName);
        if (!type) throw std::invalid_argument("unknown resource type '" + typeName + "'");
        resource.type = *type;
    }
    readString(*object, "sub_type", resource.sub_type);
    if (const auto* size = object->if_contains("size")) {
        auto converted = json::try_value_to<std::uint64_t>(*size);
        if (!converted) throw std::invalid_argument("'size' is not an unsigned number");
        resource.size = *converted;
    }
    readString(*object, "created", resource.created);
    readString(*object, "created_by", resource.created_by);
    readString(*object, "updated", resource.updated);
    readString(*object, "job_id", resource.job_id);
    if (const auto* header = object->if_contains("header")) {
        if (const auto* headerObject = header->if_object()) {
            resource.header = *headerObject;
        } else if (!header->is_null()) {
            throw std::invalid_argument("'header' is not an object");
        }
    }
    return resource;
}

}  // namespace velmar
