#pragma once

// Python callables called from the link's I/O thread. The holder takes the interpreter
// lock for the call, for every copy and for its destruction; an exception raised by the
// callable is reported as unraisable and never unwinds into the caller.

#include <pybind11/pybind11.h>

#include <functional>
#include <memory>
#include <utility>

namespace velmar::python {

class PyCallbackHolder {
public:
    explicit PyCallbackHolder(pybind11::object callable) : callable_(std::move(callable)) {}
    PyCallbackHolder(const PyCallbackHolder&) = delete;
    PyCallbackHolder& operator=(const PyCallbackHolder&) = delete;
    ~PyCallbackHolder() {
        if (Py_IsInitialized() == 0) {
            callable_.release();
            return;
        }
        pybind11::gil_scoped_acquire gil;
        callable_ = pybind11::object();
    }

    /// Converts the arguments and calls the callable; the lock is taken here.
    template <class... Args>
    void call(Args&&... args) const {
        if (Py_IsInitialized() == 0) return;
        pybind11::gil_scoped_acquire gil;
        try {
            callable_(std::forward<Args>(args)...);
        } catch (pybind11::error_already_set& error) {
            error.discard_as_unraisable("velmar_link callback");
        } catch (const std::exception& error) {
            PyErr_SetString(PyExc_RuntimeError, error.what());
            PyErr_WriteUnraisable(callable_.ptr());
        }
    }

private:
    pybind11::object callable_;
};

/// A std::function that calls a Python callable safely from any thread.
template <class... Args>
std::function<void(Args...)> wrapPyCallback(pybind11::object callable) {
    auto holder = std::make_shared<PyCallbackHolder>(std::move(callable));
    return [holder](Args... args) { holder->call(std::forward<Args>(args)...); };
}

}  // namespace velmar::python
