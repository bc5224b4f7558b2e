#pragma once

#include <OpenZyvo/ZStatus.h>
#include <string>

namespace oz::plugins {

// A plug-in's host-side scripts are the Python package zyvo.app.<name in
// lower case>, found in a script folder named after the plug-in
// (<folder>/<Name>/zyvo/app/<name>) or in a script folder itself
// (<folder>/zyvo/app/<name>). When there is one, its folder joins the
// interpreter's path and the package is imported, so that it can register
// the procedures the plug-in runs while it initialises. Import errors are
// reported and fail. A plug-in without scripts needs no interpreter.
ZStatus importPluginScripts(const std::string& plugin);

// Drops the plug-in's modules from the interpreter, so that loading the
// plug-in again imports (and registers) them afresh.
void forgetPluginScripts(const std::string& plugin);

} // namespace oz::plugins
