#include "python/PythonError.h"

#include "commands/MessageLog.h"

namespace py = pybind11;

namespace oz::python {

namespace {

// Marks exceptions made by raiseShownError.
constexpr const char* kShownMark = "_zyvoShown";

std::string joined(const py::handle& lines) {
    std::string text;
    for (const py::handle line : lines)
        text += line.cast<std::string>();
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text;
}

// "<Type>: <message>" without running Python code, for when the traceback
// module itself fails: at the recursion limit, say, where the failure is
// caught with the interpreter's frames still deep.
std::string plainDescription(py::error_already_set& error) {
    std::string text = Py_TYPE(error.value().ptr())->tp_name;
    PyObject* message = PyObject_Str(error.value().ptr());
    const char* utf8 = message ? PyUnicode_AsUTF8(message) : nullptr;
    if (utf8 && *utf8)
        text += std::string(": ") + utf8;
    Py_XDECREF(message);
    PyErr_Clear();
    return text;
}

} // namespace

std::string describeException(py::error_already_set& error) {
    try {
        const py::module_ traceback = py::module_::import("traceback");
        return joined(traceback.attr("format_exception_only")(error.type(), error.value()));
    } catch (const std::exception&) {
        return plainDescription(error);
    }
}

void reportException(py::error_already_set& error) {
    if (py::hasattr(error.value(), kShownMark))
        return;
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

void raiseShownError(const std::string& message) {
    const py::object exception = py::reinterpret_borrow<py::object>(PyExc_RuntimeError)(message);
    exception.attr(kShownMark) = true;
    PyErr_SetObject(PyExc_RuntimeError, exception.ptr());
    throw py::error_already_set();
}

} // namespace oz::python
