#pragma once

#include <string>
#include <string_view>

namespace velmar {

/// Bytes read from a resource; scripts receive them as `bytes`, not as text.
struct ResourceContent {
    std::string bytes;
};

/// Bytes handed in by a script from any object that supports the buffer protocol.
struct ByteView {
    std::string_view bytes;
};

}  // namespace velmar
