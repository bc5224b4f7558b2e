#pragma once

#include <pybind11/pybind11.h>
#include <string>

namespace oz::python {

// Calls a registered command the way zyvo.cmds does: keyword arguments are
// flags (`name="t"` is `-name "t"`; True alone sets a flag that takes no
// arguments; False leaves it out; a list or tuple gives a flag several
// values, a list of them several uses of a multi-use flag, as does a list
// of single values for a multi-use flag of one argument) and come first,
// followed by the positional arguments, lists spread into their items.
// Returns the command's result; a failure raises RuntimeError with the
// error the command reported. Only the main thread may call commands: from
// any other, the call raises RuntimeError and runs nothing. Needs the
// interpreter lock, which it releases while the command runs.
pybind11::object callCommand(const std::string& name, pybind11::args args, pybind11::kwargs kwargs);

// Raises RuntimeError naming `name` unless called on the main thread:
// commands share the graph, the undo queue and the result of the running
// command, which only the main thread may touch.
void requireMainThread(const std::string& name);

} // namespace oz::python
