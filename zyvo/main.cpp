#include "CommandLine.h"
#include "ExportJob.h"
#include "Host.h"
#include "ProcessEnvironment.h"
#include "ScriptRunner.h"

#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvoHost/ZHostScripts.h>

namespace {

ZStatus perform(const zyvo::CommandLine& line, zyvo::Host& host) {
    using Action = zyvo::CommandLine::Action;
    switch (line.action) {
    case Action::Run:
        return zyvo::runFile(line.file, host.options().verbose);
    case Action::Python:
        return line.code.empty() ? ZHost::runPythonFile(line.file, line.scriptArgs)
                                 : zyvo::runPythonCode(line.code);
    case Action::Export:
        if (const ZStatus checked = zyvo::checkExportRequest(line.exportRequest); !checked)
            return checked;
        if (!line.scene.empty()) {
            if (const ZStatus prepared = zyvo::runFile(line.scene, host.options().verbose); !prepared) {
                ZGlobal::displayError(ZString("The scene ") + line.scene.c_str() +
                                      " failed; nothing was exported");
                return prepared;
            }
        }
        return zyvo::runExport(line.exportRequest, host);
    case Action::Text:
        return zyvo::runText(line.textRequest, host);
    case Action::Svg:
        return zyvo::runSvg(line.svgRequest, host);
    case Action::ListFonts:
        return zyvo::listFonts();
    }
    return ZStatus::kFailure;
}

} // namespace

int main(int argc, char** argv) {
    zyvo::CommandLine line;
    if (const auto done = zyvo::parseCommandLine(argc, argv, line))
        return *done;
    zyvo::prepareProcess(line.host.verbose);
    zyvo::Host host(line.host);
    ZStatus status = host.loadPlugins();
    if (status)
        status = perform(line, host);
    host.shutdown();
    return host.exitCode(status);
}
