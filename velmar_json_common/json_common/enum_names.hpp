#pragma once

// Wire names of described enumerations: the one table is the enumeration's description, so a
// name list cannot drift from the enumerators.

#include <boost/describe/enum.hpp>
#include <boost/describe/enumerators.hpp>
#include <boost/mp11/algorithm.hpp>

#include <optional>
#include <string_view>

namespace velmar {

/// The enumerator's name, or an empty view for a value outside the description.
template <class Enum>
[[nodiscard]] constexpr std::string_view enumName(Enum value) noexcept {
    std::string_view name;
    boost::mp11::mp_for_each<boost::describe::describe_enumerators<Enum>>([&](auto descriptor) {
        if (descriptor.value == value) name = descriptor.name;
    });
    return name;
}

/// The enumerator named exactly `name` (case-sensitive), if there is one.
template <class Enum>
[[nodiscard]] constexpr std::optional<Enum> enumFromName(std::string_view name) noexcept {
    std::optional<Enum> found;
    boost::mp11::mp_for_each<boost::describe::describe_enumerators<Enum>>([&](auto descriptor) {
        if (!found && name == descriptor.name) found = descriptor.value;
    });
    return found;
}

}  // namespace velmar
