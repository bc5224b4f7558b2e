#pragma once

#include <pybind11/pybind11.h>
#include <string>

namespace oz::python {

// Calls a registered command the way zyvo.cmds does: keyword arguments are
// flags (`name="t"` is `-name "t"`; True alone sets a flag that takes no
// arguments; False leaves it out; a list or tuple gives a flag several
// values, a list of them several uses of a multi-use flag) and come first,
// followed by the positional arguments, lists spread into their items.
// Returns the command's result; a failure raises RuntimeError with the
// error the command reported. Needs the interpreter lock, which it releases
// while the command runs.
pybind11::object callCommand(const std::string& name, pybind11::args args, pybind11::kwargs kwargs);

} // namespace oz::python
