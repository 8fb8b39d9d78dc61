#include "json_common/logging/error_code_enum.hpp"

#include <array>

namespace velmar {

namespace {

constexpr std::array kNameTable{
#define VELMAR_ERROR_CODE_ENTRY(name, value) std::pair{ErrorCodeEnum::name, std::string_view{#name}},
    VELMAR_ERROR_CODES(VELMAR_ERROR_CODE_ENTRY)
#undef VELMAR_ERROR_CODE_ENTRY
};

}  // namespace

std::span<const std::pair<ErrorCodeEnum, std::string_view>> errorCodeNameTable() {
    return kNameTable;
}

std::string_view errorCodeName(ErrorCodeEnum code) {
    for (const auto& [value, name] : kNameTable) {
        if (value == code) return name;
    }
    return "UNKNOWN_ERR";
}

ErrorCodeEnum errorCodeFromName(std::string_view name) {
    for (const auto& [value, entry] : kNameTable) {
        if (entry == name) return value;
    }
    return ErrorCodeEnum::UNKNOWN_ERR;
}

}  // namespace velmar
