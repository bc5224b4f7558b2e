#include "python/PythonProcedure.h"

#include "commands/MessageLog.h"
#include "python/CallableHolder.h"
#include "python/PythonError.h"
#include "python/PythonRuntime.h"
#include "python/ValueConversion.h"

#include <memory>

namespace py = pybind11;

namespace oz::python {

namespace {

void reportError(const std::string& text) {
    cmd::MessageLog::instance().add(cmd::MessageLog::Kind::Error, text);
}

} // namespace

cmd::Procedure makeProcedure(const std::string& name, py::object callable) {
    auto holder = std::make_shared<CallableHolder>(std::move(callable));
    return [name, holder](const std::vector<cmd::Value>& args, cmd::Value& result) -> ZStatus {
        if (!isInitialized()) {
            reportError(name + ": Python is not running");
            return ZStatus::kFailure;
        }
        py::gil_scoped_acquire gil;
        try {
            py::tuple pythonArgs(args.size());
            for (std::size_t i = 0; i < args.size(); ++i)
                pythonArgs[i] = toPython(args[i]);
            const py::object returned = holder->callable()(*pythonArgs);
            std::string error;
            auto value = fromPython(returned, error);
            if (!value) {
                reportError(name + ": unsupported result: " + error);
                return ZStatus::kFailure;
            }
            result = std::move(*value);
            return ZStatus::kSuccess;
        } catch (py::error_already_set& error) {
            reportException(error);
        } catch (const std::exception& error) {
            reportError(name + ": " + error.what());
        }
        return ZStatus::kFailure;
    };
}

} // namespace oz::python
