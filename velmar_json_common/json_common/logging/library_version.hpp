#pragma once

#include <string_view>

namespace velmar {

/// Build constants of the library.
struct LibraryVersion {
    static constexpr std::string_view getVersion() { return "26.40.0+23251aaf"; }
    static constexpr std::string_view getBuildId() { return "23251aaf"; }
    static constexpr std::string_view getGitRevision() { return "23251aaf"; }
    static constexpr std::string_view getBranch() { return "HEAD"; }
    static constexpr std::string_view getProtocolVersionString() { return "12"; }
    static constexpr unsigned getProtocolVersion() { return 12; }
};

/// The protocol version that this library speaks.
struct ProtocolVersion {
    static constexpr unsigned library() { return LibraryVersion::getProtocolVersion(); }
};

}  // namespace velmar
