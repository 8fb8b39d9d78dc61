#include "json_common/base64.hpp"

#include <array>
#include <cstdint>

namespace velmar {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::array<std::int8_t, 256> makeDecodeTable() {
    std::array<std::int8_t, 256> table{};
    table.fill(-1);
    for (std::size_t i = 0; i < kAlphabet.size(); ++i) table[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::int8_t>(i);
    return table;
}

constexpr auto kDecode = makeDecodeTable();

}  // namespace

std::string encodeBase64(std::string_view bytes) {
    std::string out;
    out.resize((bytes.size() + 2) / 3 * 4);
    std::size_t o = 0;
    std::size_t i = 0;
    const auto* in = reinterpret_cast<const unsigned char*>(bytes.data());
    for (; i + 3 <= bytes.size(); i += 3) {
        const std::uint32_t v = (std::uint32_t(in[i]) << 16) | (std::uint32_t(in[i + 1]) << 8) | in[i + 2];
        out[o++] = kAlphabet[(v >> 18) & 63];
        out[o++] = kAlphabet[(v >> 12) & 63];
        out[o++] = kAlphabet[(v >> 6) & 63];
        out[o++] = kAlphabet[v & 63];
    }
    if (const auto rest = bytes.size() - i; rest > 0) {
        std::uint32_t v = std::uint32_t(in[i]) << 16;
        if (rest == 2) v |= std::uint32_t(in[i + 1]) << 8;
        out[o++] = kAlphabet[(v >> 18) & 63];
        out[o++] = kAlphabet[(v >> 12) & 63];
        out[o++] = rest == 2 ? kAlphabet[(v >> 6) & 63] : '=';
        out[o++] = '=';
    }
    return out;
}

std::size_t decodedBase64Size(std::string_view text) {
    if (text.empty()) return 0;
    std::size_t size = text.size() / 4 * 3;
    if (text.back() == '=') --size;
    if (text.size() >= 2 && text[text.size() - 2] == '=') --size;
    return size;
}

bool decodeBase64Into(std::string_view text, char* out) {
    if (text.size() % 4 != 0) return false;
    const std::size_t padding = text.empty() ? 0 : (text.back() == '=') + (text.size() >= 2 && text[text.size() - 2] == '=');
    const std::size_t full = text.size() - (padding > 0 ? 4 : 0);
    std::size_t o = 0;
    for (std::size_t i = 0; i < full; i += 4) {
        std::uint32_t v = 0;
        for (std::size_t k = 0; k < 4; ++k) {
            const auto d = kDecode[static_cast<unsigned char>(text[i + k])];
            if (d < 0) return false;
            v = (v << 6) | static_cast<std::uint32_t>(d);
        }
        out[o++] = static_cast<char>(v >> 16);
        out[o++] = static_cast<char>(v >> 8);
        out[o++] = static_cast<char>(v);
    }
    if (padding > 0) {
        const auto a = kDecode[static_cast<unsigned char>(text[full])];
        const auto b = kDecode[static_cast<unsigned char>(text[full + 1])];
        const auto c = padding == 1 ? kDecode[static_cast<unsigned char>(text[full + 2])] : std::int8_t{0};
        if (a < 0 || b < 0 || c < 0) return false;
        const std::uint32_t v = (std::uint32_t(a) << 18) | (std::uint32_t(b) << 12) | (std::uint32_t(c) << 6);
        out[o++] = static_cast<char>(v >> 16);
        if (padding == 1) out[o++] = static_cast<char>(v >> 8);
    }
    return true;
}

std::expected<std::string, std::string> decodeBase64(std::string_view text) {
    if (text.size() % 4 != 0) return std::unexpected(std::string("Invalid Base64 string length."));
    std::string out(decodedBase64Size(text), '\0');
    if (!decodeBase64Into(text, out.data())) return std::unexpected(std::string("Invalid Base64 character."));
    return out;
}

}  // namespace velmar
