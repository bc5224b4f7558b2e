#pragma once

#include "python/PythonRuntime.h"

#include <pybind11/pybind11.h>

namespace oz::python {

// Owns one reference to a Python callable for C++ code that may drop it
// anywhere (a procedure registry, the idle queue), so the release takes the
// interpreter lock itself, and leaks the reference once the interpreter has
// ended. Made with the interpreter lock held.
class CallableHolder {
public:
    explicit CallableHolder(pybind11::object callable)
        : m_callable(callable.release().ptr()) {}
    ~CallableHolder() {
        if (!isInitialized())
            return;
        const PyGILState_STATE gil = PyGILState_Ensure();
        Py_DECREF(m_callable);
        PyGILState_Release(gil);
    }
    CallableHolder(const CallableHolder&) = delete;
    CallableHolder& operator=(const CallableHolder&) = delete;

    pybind11::handle callable() const { return m_callable; }

private:
    PyObject* m_callable;
};

} // namespace oz::python
