#pragma once

#include "commands/ProcedureRegistry.h"

#include <pybind11/pybind11.h>

namespace oz::python {

// Wraps a Python callable as a script procedure: the arguments arrive as
// Python values, the return value becomes the result, and an exception is
// reported as an error. Needs the interpreter lock.
cmd::Procedure makeProcedure(const std::string& name, pybind11::object callable);

} // namespace oz::python
