#include "python/PythonError.h"

#include "commands/MessageLog.h"

namespace py = pybind11;

namespace oz::python {

namespace {

std::string joined(const py::handle& lines) {
    std::string text;
    for (const py::handle line : lines)
        text += line.cast<std::string>();
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text;
}

} // namespace

std::string describeException(py::error_already_set& error) {
    try {
        const py::module_ traceback = py::module_::import("traceback");
        return joined(traceback.attr("format_exception_only")(error.type(), error.value()));
    } catch (const std::exception&) {
        return error.what();
    }
}

void reportException(py::error_already_set& error) {
    cmd::MessageLog& log = cmd::MessageLog::instance();
    if (error.trace()) {
        try {
            const py::module_ traceback = py::module_::import("traceback");
            const std::string frames = joined(traceback.attr("format_tb")(error.trace()));
            if (!frames.empty())
                log.add(cmd::MessageLog::Kind::Info, "Traceback (most recent call last):\n" + frames);
        } catch (const std::exception&) {
            // The summary below still says what went wrong.
        }
    }
    log.add(cmd::MessageLog::Kind::Error, describeException(error));
}

} // namespace oz::python
