#include "python/CmdsCall.h"

#include "commands/CallerLanguage.h"
#include "commands/CommandRegistry.h"
#include "commands/Executor.h"
#include "commands/MessageLog.h"
#include "commands/SyntaxData.h"
#include "python/PythonError.h"
#include "python/PythonRuntime.h"
#include "python/ValueConversion.h"

#include <optional>

namespace py = pybind11;

namespace oz::python {

namespace {

bool isSequence(py::handle object) {
    return py::isinstance<py::list>(object) || py::isinstance<py::tuple>(object);
}

cmd::Value converted(const std::string& command, py::handle object) {
    std::string error;
    auto value = fromPython(object, error);
    if (!value)
        throw py::type_error(command + ": " + error);
    return std::move(*value);
}

class ArgumentBuilder {
public:
    ArgumentBuilder(std::string command, const cmd::SyntaxData* syntax)
        : m_command(std::move(command))
        , m_syntax(syntax) {}

    void addKeywords(const py::kwargs& kwargs) {
        m_query = queryRequested(kwargs);
        for (const auto [key, value] : kwargs)
            addFlag(key.cast<std::string>(), value);
    }

    void addPositionals(const py::args& args) {
        for (const py::handle arg : args)
            spread(arg);
    }

    std::vector<cmd::ArgItem> take() { return std::move(m_items); }

private:
    bool queryRequested(const py::kwargs& kwargs) const {
        if (!m_syntax || !m_syntax->query)
            return false;
        for (const char* key : {"q", "query"})
            if (kwargs.contains(key) && py::bool_(kwargs[key]))
                return true;
        return false;
    }

    void addFlag(const std::string& name, py::handle value) {
        const cmd::FlagSpec* definition = m_syntax ? m_syntax->find(name) : nullptr;
        const bool takesNothing =
            definition ? definition->argTypes.empty() || (m_query && !definition->queryWithArgs) : !m_syntax;
        if (py::isinstance<py::bool_>(value) && (takesNothing || !definition)) {
            if (value.cast<bool>())
                m_items.push_back(cmd::ArgItem::flag(name));
            return;
        }
        // A list gives a multi-use flag one use per item when the items are
        // themselves lists, or when the flag takes one argument.
        if (definition && definition->multiUse && py::isinstance<py::list>(value) && py::len(value) != 0 &&
            (isSequence(value.cast<py::list>()[0]) || definition->argTypes.size() == 1)) {
            for (const py::handle use : value) {
                m_items.push_back(cmd::ArgItem::flag(name));
                spread(use);
            }
            return;
        }
        m_items.push_back(cmd::ArgItem::flag(name));
        spread(value);
    }

    void spread(py::handle value) {
        if (!isSequence(value)) {
            m_items.push_back({converted(m_command, value)});
            return;
        }
        for (const py::handle item : value)
            m_items.push_back({converted(m_command, item)});
    }

    std::string m_command;
    const cmd::SyntaxData* m_syntax;
    bool m_query = false;
    std::vector<cmd::ArgItem> m_items;
};

} // namespace

void requireMainThread(const std::string& name) {
    if (!onMainThread())
        throw std::runtime_error(name + ": commands run on the main thread only; from another thread, "
                                        "queue the work with zyvo.executeDeferred(function)");
}

py::object callCommand(const std::string& name, py::args args, py::kwargs kwargs) {
    requireMainThread(name);
    const auto info = cmd::CommandRegistry::instance().find(name);
    if (!info)
        throw py::attribute_error("no command named '" + name + "'");
    const ZSyntax syntax = info->makeSyntax ? info->makeSyntax() : ZSyntax();
    ArgumentBuilder builder(name, info->makeSyntax ? &cmd::SyntaxAccess::data(syntax) : nullptr);
    builder.addKeywords(kwargs);
    builder.addPositionals(args);
    const std::vector<cmd::ArgItem> items = builder.take();

    cmd::Value result;
    ZStatus status;
    std::size_t errorsBefore = 0;
    {
        py::gil_scoped_release release;
        const cmd::CallerLanguageScope fromPython(cmd::Language::Python);
        errorsBefore = cmd::MessageLog::instance().errorCount();
        status = cmd::Executor::invoke(name, items, result);
    }
    if (!status) {
        if (const auto shown = cmd::MessageLog::instance().errorSince(errorsBefore))
            raiseShownError(*shown);
        throw std::runtime_error(name + " failed");
    }
    return toPython(result);
}

} // namespace oz::python
