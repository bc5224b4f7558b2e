#include "python/ValueConversion.h"

#include "core/Overloaded.h"

#include <limits>

namespace py = pybind11;

namespace oz::python {

namespace {

template <typename T> py::list listOf(const std::vector<T>& items) {
    py::list list;
    for (const T& item : items)
        list.append(py::cast(item));
    return list;
}

std::string pythonTypeName(py::handle object) {
    return py::str(py::type::handle_of(object).attr("__name__")).cast<std::string>();
}

std::optional<int> intOf(py::handle object) {
    const long long value = object.cast<long long>();
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(value);
}

std::optional<cmd::Value> scalarOf(py::handle object, std::string& error) {
    if (py::isinstance<py::bool_>(object))
        return cmd::Value(object.cast<bool>());
    if (py::isinstance<py::int_>(object)) {
        try {
            if (auto value = intOf(object))
                return cmd::Value(*value);
        } catch (const py::cast_error&) {
        }
        error = "integer " + py::str(object).cast<std::string>() + " is too large";
        return std::nullopt;
    }
    if (py::isinstance<py::float_>(object))
        return cmd::Value(object.cast<double>());
    if (py::isinstance<py::str>(object))
        return cmd::Value(object.cast<std::string>());
    error = "values of type '" + pythonTypeName(object) + "' are not supported";
    return std::nullopt;
}

std::optional<cmd::Value> arrayOf(py::sequence items, std::string& error) {
    std::vector<cmd::Value> scalars;
    bool allStrings = true;
    bool allInts = true;
    for (const py::handle item : items) {
        auto scalar = scalarOf(item, error);
        if (!scalar)
            return std::nullopt;
        allStrings &= std::holds_alternative<std::string>(*scalar);
        allInts &= std::holds_alternative<int>(*scalar) || std::holds_alternative<bool>(*scalar);
        scalars.push_back(std::move(*scalar));
    }
    if (allStrings) {
        std::vector<std::string> out;
        for (const cmd::Value& scalar : scalars)
            out.push_back(std::get<std::string>(scalar));
        return cmd::Value(std::move(out));
    }
    if (allInts) {
        std::vector<int> out;
        for (const cmd::Value& scalar : scalars)
            out.push_back(*cmd::toInt(scalar));
        return cmd::Value(std::move(out));
    }
    std::vector<double> out;
    for (const cmd::Value& scalar : scalars) {
        const auto number = cmd::toDouble(scalar);
        if (!number) {
            error = "a list may not mix strings and numbers";
            return std::nullopt;
        }
        out.push_back(*number);
    }
    return cmd::Value(std::move(out));
}

} // namespace

py::object toPython(const cmd::Value& value) {
    return std::visit(Overloaded{
                          [](std::monostate) -> py::object { return py::none(); },
                          [](bool b) -> py::object { return py::bool_(b); },
                          [](int i) -> py::object { return py::int_(i); },
                          [](double d) -> py::object { return py::float_(d); },
                          [](const std::string& s) -> py::object { return py::str(s); },
                          [](const auto& items) -> py::object { return listOf(items); },
                      },
                      value);
}

std::optional<cmd::Value> fromPython(py::handle object, std::string& error) {
    if (object.is_none())
        return cmd::Value();
    if (py::isinstance<py::list>(object) || py::isinstance<py::tuple>(object))
        return arrayOf(py::reinterpret_borrow<py::sequence>(object), error);
    return scalarOf(object, error);
}

} // namespace oz::python
