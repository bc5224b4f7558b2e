#pragma once

#include <pybind11/pybind11.h>
#include <string>

namespace oz::python {

// Shows a Python exception in the message log: its traceback as information,
// then "<Type>: <message>" as the error. An exception made by
// raiseShownError is not shown again. Needs the interpreter lock.
void reportException(pybind11::error_already_set& error);

// Raises RuntimeError(message) for a failure the message log already shows
// (a command's error). Such an error climbs through every script level that
// called the command, Python and command language in turn; it is shown
// once, where it happened, instead of once more with a longer prefix at each
// level. Needs the interpreter lock.
[[noreturn]] void raiseShownError(const std::string& message);

// "<Type>: <message>" of an exception. Needs the interpreter lock.
std::string describeException(pybind11::error_already_set& error);

} // namespace oz::python
