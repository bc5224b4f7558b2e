#include "plugins/PluginScripts.h"

#include "plugins/SearchPaths.h"
#include "python/PythonError.h"
#include "python/PythonRuntime.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <optional>
#include <pybind11/embed.h>

namespace py = pybind11;

namespace oz::plugins {

namespace {

std::string packageName(const std::string& plugin) {
    std::string lower = plugin;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

bool holdsPackage(const std::filesystem::path& folder, const std::string& package) {
    const std::filesystem::path app = folder / "zyvo" / "app";
    std::error_code error;
    return std::filesystem::is_regular_file(app / package / "__init__.py", error) ||
           std::filesystem::is_regular_file(app / (package + ".py"), error);
}

std::optional<std::filesystem::path> scriptsFolderOf(const std::string& plugin, const std::string& package) {
    for (const auto& folder : SearchPaths::instance().scriptFolders()) {
        if (holdsPackage(folder / plugin, package))
            return folder / plugin;
        if (holdsPackage(folder, package))
            return folder;
    }
    return std::nullopt;
}

} // namespace

ZStatus importPluginScripts(const std::string& plugin) {
    const std::string package = packageName(plugin);
    const auto folder = scriptsFolderOf(plugin, package);
    if (!folder)
        return ZStatus::kSuccess;
    if (!python::initialize())
        return ZStatus::kFailure;
    python::addScriptFolder(folder->string());
    py::gil_scoped_acquire gil;
    try {
        py::module_::import("importlib").attr("import_module")("zyvo.app." + package);
    } catch (py::error_already_set& error) {
        python::reportException(error);
        return ZStatus::kFailure;
    }
    return ZStatus::kSuccess;
}

void forgetPluginScripts(const std::string& plugin) {
    if (!python::isInitialized())
        return;
    const std::string module = "zyvo.app." + packageName(plugin);
    py::gil_scoped_acquire gil;
    try {
        py::dict modules = py::module_::import("sys").attr("modules");
        py::list names(modules.attr("keys")());
        for (const py::handle name : names) {
            const std::string text = py::str(name);
            if (text == module || text.rfind(module + ".", 0) == 0)
                PyDict_DelItem(modules.ptr(), name.ptr());
        }
    } catch (py::error_already_set& error) {
        python::reportException(error);
    }
}

} // namespace oz::plugins
