#include "commands/CommandRegistry.h"
#include "commands/IdleQueue.h"
#include "commands/Interpreter.h"
#include "commands/MessageLog.h"
#include "commands/ProcedureRegistry.h"
#include "python/CallableHolder.h"
#include "python/CmdsCall.h"
#include "python/PythonError.h"
#include "python/PythonProcedure.h"
#include "python/PythonRuntime.h"
#include "python/ValueConversion.h"

#include <pybind11/embed.h>
#include <pybind11/stl.h>

namespace py = pybind11;

namespace {

void display(oz::cmd::MessageLog::Kind kind, const std::string& text) {
    oz::cmd::MessageLog::instance().add(kind, text);
}

// Runs a script of the command language and returns its result.
py::object evalScript(const std::string& script) {
    oz::python::requireMainThread("eval");
    const std::size_t errorsBefore = oz::cmd::MessageLog::instance().errorCount();
    oz::cmd::ScriptOutcome outcome;
    {
        py::gil_scoped_release release;
        outcome = oz::cmd::runScript(script, {false, true});
    }
    if (!outcome.status) {
        if (const auto shown = oz::cmd::MessageLog::instance().errorSince(errorsBefore))
            oz::python::raiseShownError(*shown);
        throw std::runtime_error("script failed");
    }
    return oz::python::toPython(outcome.result);
}

// Any thread may queue a callable; the main thread calls it once the
// current top-level command has finished, where it may run commands.
void executeDeferred(py::object callable) {
    if (!PyCallable_Check(callable.ptr()))
        throw py::type_error("executeDeferred: needs a callable");
    auto holder = std::make_shared<oz::python::CallableHolder>(std::move(callable));
    oz::cmd::IdleQueue::instance().push([holder] {
        if (!oz::python::isInitialized())
            return;
        py::gil_scoped_acquire gil;
        try {
            holder->callable()();
        } catch (py::error_already_set& error) {
            oz::python::reportException(error);
        }
    });
}

void registerProcedure(const std::string& name, py::object callable) {
    if (!PyCallable_Check(callable.ptr()))
        throw py::type_error("registerProcedure: '" + name + "' needs a callable");
    oz::cmd::Procedure procedure = oz::python::makeProcedure(name, std::move(callable));
    ZStatus status;
    {
        py::gil_scoped_release release;
        status = oz::cmd::ProcedureRegistry::instance().add(name, std::move(procedure));
    }
    if (!status)
        throw py::value_error("registerProcedure: '" + name + "' is not a valid procedure name");
}

bool deregisterProcedure(const std::string& name) {
    py::gil_scoped_release release;
    return static_cast<bool>(oz::cmd::ProcedureRegistry::instance().remove(name));
}

py::object command(const std::string& name) {
    if (!oz::cmd::CommandRegistry::instance().find(name))
        throw py::attribute_error("module 'zyvo.cmds' has no attribute '" + name + "'");
    return py::cpp_function(
        [name](py::args args, py::kwargs kwargs) { return oz::python::callCommand(name, args, kwargs); },
        py::name(name.c_str()));
}

} // namespace

// `zyvo` is a package: script folders added with addScriptPath extend its
// __path__, so plug-ins ship their modules as zyvo.app.<name>.
PYBIND11_EMBEDDED_MODULE(zyvo, module) {
    module.doc() = "The Zyvo host: commands, script procedures and messages.";
    module.attr("__path__") = py::list();

    module.def("eval", &evalScript, py::arg("script"),
               "Runs a script of the host's command language and returns its result.");
    module.def("executeDeferred", &executeDeferred, py::arg("function"),
               "Calls a function on the main thread once the running command has finished; the way "
               "for other threads to run commands.");
    module.def("registerProcedure", &registerProcedure, py::arg("name"), py::arg("callable"),
               "Makes a callable a script procedure, callable by name from the command language.");
    module.def("deregisterProcedure", &deregisterProcedure, py::arg("name"));
    module.def("addScriptPath", &oz::python::addScriptFolder, py::arg("folder"),
               "Adds a folder to sys.path and its zyvo subfolder to this package.");
    module.def("displayInfo",
               [](const std::string& text) { display(oz::cmd::MessageLog::Kind::Info, text); });
    module.def("displayWarning",
               [](const std::string& text) { display(oz::cmd::MessageLog::Kind::Warning, text); });
    module.def("displayError",
               [](const std::string& text) { display(oz::cmd::MessageLog::Kind::Error, text); });

    // Commands come and go with plug-ins, so zyvo.cmds looks them up on each
    // attribute access instead of holding a function per command.
    py::module_ cmds = module.def_submodule("cmds", "Every registered command, as a function.");
    cmds.def("__getattr__", &command);
    cmds.def("__dir__", [] { return oz::cmd::CommandRegistry::instance().names(); });
    py::module_::import("sys").attr("modules")["zyvo.cmds"] = cmds;
}
