#include "json_common/configuration/hardware_info.hpp"

#include "json_common/detail/described_json.hpp"

#include <algorithm>

namespace velmar {

VELMAR_DEFINE_DESCRIBED_JSON(HardwareInfo)

namespace {
const PathInfo* findPath(const std::vector<PathInfo>& paths, std::string PathInfo::*key, std::string_view value) {
    const auto found =
        std::find_if(paths.begin(), paths.end(), [&](const PathInfo& path) { return path.*key == value; });
    return found == paths.end() ? nullptr : &*found;
}
}  // namespace

bool HardwareInfo::constainsUrn(std::string_view urn) const { return findPath(paths, &PathInfo::urn, urn) != nullptr; }

bool HardwareInfo::constainsUrl(std::string_view url) const { return findPath(paths, &PathInfo::url, url) != nullptr; }

std::string HardwareInfo::convertUrnToUrl(std::string_view urn) const {
    const auto* path = findPath(paths, &PathInfo::urn, urn);
    return path != nullptr ? path->url : std::string();
}

std::string HardwareInfo::convertUrlToUrn(std::string_view url) const {
    const auto* path = findPath(paths, &PathInfo::url, url);
    return path != nullptr ? path->urn : std::string();
}

}  // namespace velmar
