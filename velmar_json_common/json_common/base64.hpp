#pragma once

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>

namespace velmar {

/// Standard Base64 (RFC 4648 alphabet, with padding).
std::string encodeBase64(std::string_view bytes);

/// The number of bytes that a Base64 text of this length and padding decodes to.
std::size_t decodedBase64Size(std::string_view text);

/// Decodes standard Base64. A text whose length is not a multiple of four is refused with
/// "Invalid Base64 string length."; a character outside the alphabet with
/// "Invalid Base64 character.".
std::expected<std::string, std::string> decodeBase64(std::string_view text);

/// Decodes into `out`, which must hold decodedBase64Size(text) bytes; returns false on a
/// malformed text. Used where the destination is preallocated storage.
bool decodeBase64Into(std::string_view text, char* out);

}  // namespace velmar
