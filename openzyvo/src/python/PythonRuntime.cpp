#include "python/PythonRuntime.h"

#include "commands/MessageLog.h"
#include "python/PythonError.h"

#include <filesystem>
#include <mutex>
#include <pybind11/embed.h>
#include <thread>
#include <vector>

namespace py = pybind11;

namespace oz::python {

namespace {

enum class State { NotStarted, Running, Failed, Ended };

struct Runtime {
    std::mutex mutex;
    State state = State::NotStarted;
    PyThreadState* mainThread = nullptr;
    std::thread::id mainThreadId;
    std::vector<std::string> pendingFolders;
};

// Never destroyed: script procedures released while the process exits still
// ask it whether the interpreter runs.
Runtime& runtime() {
    static Runtime* instance = new Runtime;
    return *instance;
}

void reportStartFailure(const std::string& why) {
    cmd::MessageLog::instance().add(cmd::MessageLog::Kind::Error, "Python could not start: " + why);
}

// Needs the interpreter lock.
void appendFolder(const std::string& folder) {
    py::list path = py::module_::import("sys").attr("path");
    if (!path.contains(folder))
        path.append(folder);
    const std::filesystem::path packageFolder = std::filesystem::path(folder) / "zyvo";
    std::error_code error;
    if (std::filesystem::is_directory(packageFolder, error)) {
        py::list packagePath = py::module_::import("zyvo").attr("__path__");
        if (!packagePath.contains(packageFolder.string()))
            packagePath.append(packageFolder.string());
    }
    py::module_::import("importlib").attr("invalidate_caches")();
}

} // namespace

ZStatus initialize() {
    Runtime& state = runtime();
    std::lock_guard lock(state.mutex);
    switch (state.state) {
    case State::Running:
        return ZStatus::kSuccess;
    case State::Failed:
    case State::Ended:
        return ZStatus::kFailure;
    case State::NotStarted:
        break;
    }
    try {
        // The host keeps its own signal handling; Python must not take over Ctrl-C.
        py::initialize_interpreter(false);
        {
            py::module_::import("zyvo");
            for (const std::string& folder : state.pendingFolders)
                appendFolder(folder);
        }
    } catch (py::error_already_set& error) {
        reportStartFailure(error.what());
        state.state = State::Failed;
        return ZStatus::kFailure;
    } catch (const std::exception& error) {
        reportStartFailure(error.what());
        state.state = State::Failed;
        return ZStatus::kFailure;
    }
    state.pendingFolders.clear();
    state.mainThread = PyEval_SaveThread();
    state.mainThreadId = std::this_thread::get_id();
    state.state = State::Running;
    return ZStatus::kSuccess;
}

bool isInitialized() {
    Runtime& state = runtime();
    std::lock_guard lock(state.mutex);
    return state.state == State::Running;
}

bool onMainThread() {
    Runtime& state = runtime();
    std::lock_guard lock(state.mutex);
    return state.state == State::Running && state.mainThreadId == std::this_thread::get_id();
}

void shutdown() {
    Runtime& state = runtime();
    {
        std::lock_guard lock(state.mutex);
        if (state.state != State::Running)
            return;
        state.state = State::Ended;
    }
    // Unlocked: Python code that runs while the interpreter ends may still
    // ask about the runtime.
    PyEval_RestoreThread(state.mainThread);
    py::finalize_interpreter();
}

void addScriptFolder(const std::string& folder) {
    {
        Runtime& state = runtime();
        std::lock_guard lock(state.mutex);
        if (state.state == State::NotStarted) {
            state.pendingFolders.push_back(folder);
            return;
        }
        if (state.state != State::Running)
            return;
    }
    py::gil_scoped_acquire gil;
    try {
        appendFolder(folder);
    } catch (py::error_already_set& error) {
        reportException(error);
    }
}

RunOutcome run(const std::string& code) {
    RunOutcome outcome;
    if (!initialize()) {
        outcome.status = ZStatus::kFailure;
        return outcome;
    }
    py::gil_scoped_acquire gil;
    try {
        py::object globals = py::module_::import("__main__").attr("__dict__");
        PyObject* compiled = Py_CompileString(code.c_str(), "<string>", Py_eval_input);
        const bool expression = compiled != nullptr;
        if (!compiled) {
            if (!PyErr_ExceptionMatches(PyExc_SyntaxError))
                throw py::error_already_set();
            PyErr_Clear();
            compiled = Py_CompileString(code.c_str(), "<string>", Py_file_input);
            if (!compiled)
                throw py::error_already_set();
        }
        const py::object codeObject = py::reinterpret_steal<py::object>(compiled);
        PyObject* value = PyEval_EvalCode(codeObject.ptr(), globals.ptr(), globals.ptr());
        if (!value)
            throw py::error_already_set();
        const py::object result = py::reinterpret_steal<py::object>(value);
        if (expression && !result.is_none()) {
            outcome.hasResult = true;
            outcome.result = py::str(result);
        }
    } catch (py::error_already_set& error) {
        reportException(error);
        outcome.status = ZStatus::kFailure;
    } catch (const std::exception& error) {
        cmd::MessageLog::instance().add(cmd::MessageLog::Kind::Error, error.what());
        outcome.status = ZStatus::kFailure;
    }
    return outcome;
}

} // namespace oz::python
