#include "json_common/base64.hpp"

#include <boost/beast/core/detail/base64.hpp>

#include <algorithm>

namespace velmar {

namespace base64 = boost::beast::detail::base64;

namespace {

/// The number of trailing "=" (at most two).
std::size_t paddingOf(std::string_view text) {
    std::size_t padding = 0;
    while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=') ++padding;
    return padding;
}

}  // namespace

std::string encodeBase64(std::string_view bytes) {
    std::string out(base64::encoded_size(bytes.size()), '\0');
    out.resize(base64::encode(out.data(), bytes.data(), bytes.size()));
    return out;
}

std::size_t decodedBase64Size(std::string_view text) {
    const std::size_t groups = text.size() / 4 * 3;
    return groups - std::min(groups, paddingOf(text));
}

bool decodeBase64Into(std::string_view text, char* out) {
    if (text.size() % 4 != 0) return false;
    // The codec stops at the first character outside the alphabet or at "=": a valid text is
    // read up to its padding and gives exactly the announced number of bytes. It never writes
    // more than that, also for a malformed text.
    const std::size_t expectedRead = text.size() - paddingOf(text);
    const auto [written, read] = base64::decode(out, text.data(), text.size());
    return read == expectedRead && written == decodedBase64Size(text);
}

std::expected<std::string, std::string> decodeBase64(std::string_view text) {
    if (text.size() % 4 != 0) return std::unexpected(std::string("Invalid Base64 string length."));
    std::string out(decodedBase64Size(text), '\0');
    if (!decodeBase64Into(text, out.data())) return std::unexpected(std::string("Invalid Base64 character."));
    return out;
}

}  // namespace velmar
