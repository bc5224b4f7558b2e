#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace oz::plugins {

// The library a loadPlugin argument means. A path (anything with a '/') is
// taken as it is, or with ".so" added; a bare name ("Type" or "Type.so") is
// looked for in each plug-in folder in turn. Nothing and the reason when
// there is no such file.
std::optional<std::filesystem::path> locatePlugin(const std::string& nameOrPath, std::string& error);

// A plug-in is named after its library's file: "Type" for ".../Type.so".
std::string pluginNameOf(const std::filesystem::path& library);

} // namespace oz::plugins
