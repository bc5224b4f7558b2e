#pragma once

#include <pybind11/pybind11.h>
#include <string>

namespace oz::python {

// Shows a Python exception in the message log: its traceback as information,
// then "<Type>: <message>" as the error. Needs the interpreter lock.
void reportException(pybind11::error_already_set& error);

// "<Type>: <message>" of an exception. Needs the interpreter lock.
std::string describeException(pybind11::error_already_set& error);

} // namespace oz::python
