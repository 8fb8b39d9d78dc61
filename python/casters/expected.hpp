#pragma once

// std::expected<T, ErrorObject> reaches Python as either the value or the ErrorObject.

#include "json_common/logging/error_object.hpp"

#include <pybind11/pybind11.h>

#include <expected>

namespace pybind11::detail {

template <class T>
struct type_caster<std::expected<T, velmar::ErrorObject>> {
    static constexpr auto name = make_caster<T>::name + const_name(" | ") + make_caster<velmar::ErrorObject>::name;

    template <class U>
    static handle cast(U&& src, return_value_policy policy, handle parent) {
        if (src.has_value()) {
            return make_caster<T>::cast(std::forward<U>(src).value(), policy, parent);
        }
        return make_caster<velmar::ErrorObject>::cast(std::forward<U>(src).error(), return_value_policy::move,
                                                      parent);
    }
};

}  // namespace pybind11::detail
