#pragma once

#include "commands/Value.h"

#include <optional>
#include <pybind11/pybind11.h>
#include <string>

namespace oz::python {

// Values of the command language as Python sees them: nothing is None,
// arrays are lists. Needs the interpreter lock.
pybind11::object toPython(const cmd::Value& value);

// None, bool, int, float, str, and lists or tuples whose items are all
// numbers or all strings. Anything else leaves `error` saying why.
std::optional<cmd::Value> fromPython(pybind11::handle object, std::string& error);

} // namespace oz::python
