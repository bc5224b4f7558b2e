#pragma once

#include "ExportJob.h"
#include "Host.h"
#include "SvgCommand.h"
#include "TextCommand.h"

#include <optional>
#include <string>
#include <vector>

namespace zyvo {

struct CommandLine {
    enum class Action { Run, Python, Export, Text, ListFonts, Svg };

    HostOptions host;
    Action action = Action::Run;
    std::string file;                    // run: the file; python: the script (or empty with -c)
    std::string code;                    // python -c
    std::vector<std::string> scriptArgs; // python: sys.argv after the script
    std::string scene;                   // export --scene
    ExportRequest exportRequest;
    TextRequest textRequest;
    SvgRequest svgRequest;
};

// Reads the command line. Returns the exit code when the program is done
// already (help, version, or a usage error, which it explains).
std::optional<int> parseCommandLine(int argc, char** argv, CommandLine& line);

} // namespace zyvo
