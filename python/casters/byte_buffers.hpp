#pragma once

// Bytes across the boundary: ResourceContent reaches Python as `bytes`; ByteView is read from
// any object that supports the buffer protocol (bytes, bytearray, memoryview, numpy arrays).

#include "velmar_link_json/resource_bytes.hpp"

#include <pybind11/pybind11.h>

namespace pybind11::detail {

template <>
struct type_caster<velmar::ResourceContent> {
    PYBIND11_TYPE_CASTER(velmar::ResourceContent, const_name("bytes"));

    bool load(handle src, bool) {
        if (!PyBytes_Check(src.ptr())) return false;
        value.bytes = reinterpret_borrow<bytes>(src).cast<std::string>();
        return true;
    }

    static handle cast(const velmar::ResourceContent& content, return_value_policy, handle) {
        return bytes(content.bytes).release();
    }
};

/// Holds the caller's buffer for the length of the call; the view is released with the
/// caster, after the call, with the interpreter lock held.
template <>
class type_caster<velmar::ByteView> {
public:
    static constexpr auto name = const_name("typing_extensions.Buffer");

    type_caster() = default;
    type_caster(const type_caster&) = delete;
    type_caster& operator=(const type_caster&) = delete;
    ~type_caster() { release(); }

    bool load(handle src, bool) {
        release();
        if (PyObject_CheckBuffer(src.ptr()) == 0) return false;
        if (PyObject_GetBuffer(src.ptr(), &view_, PyBUF_C_CONTIGUOUS) != 0) {
            PyErr_Clear();
            view_ = {};
            return false;
        }
        value_.bytes = {static_cast<const char*>(view_.buf), static_cast<std::size_t>(view_.len)};
        return true;
    }

    template <class T>
    using cast_op_type = velmar::ByteView&;
    explicit operator velmar::ByteView&() { return value_; }

private:
    void release() {
        if (view_.obj != nullptr) PyBuffer_Release(&view_);
        view_ = {};
    }

    velmar::ByteView value_;
    Py_buffer view_{};
};

}  // namespace pybind11::detail
