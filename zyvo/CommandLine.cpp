#include "CommandLine.h"

#include "FrameRange.h"
#include "NumberOption.h"

#include <CLI/CLI.hpp>
#include <OpenZyvoHost/ZHostExport.h>
#include <OpenZyvoHost/ZHostSession.h>
#include <cmath>

namespace zyvo {

namespace {

void addHostOptions(CLI::App& app, HostOptions& host) {
    auto* quiet = app.add_flag("-q,--quiet", host.quiet, "Show errors only");
    app.add_flag("-v,--verbose", host.verbose, "Echo the commands that scripts run")->excludes(quiet);
    app.add_option("--plugin-path", host.pluginFolders,
                   "A folder to look for plug-ins in, before ZYVO_PLUG_IN_PATH and ../plug-ins")
        ->type_name("DIR");
    app.add_option("--script-path", host.scriptFolders,
                   "A folder of host-side scripts, before ZYVO_SCRIPT_PATH and ../scripts")
        ->type_name("DIR");
    app.add_option("--load-plugin", host.plugins, "Load a plug-in (a name or a library's path) first")
        ->type_name("NAME");
}

void addRun(CLI::App& app, CommandLine& line) {
    CLI::App* run = app.add_subcommand("run", "Run a command script (.zys), a Python file (.py) or open a "
                                              "scene (.zya)");
    run->add_option("file", line.file, "The file to run")->required()->check(CLI::ExistingFile);
    run->callback([&line] { line.action = CommandLine::Action::Run; });
}

void addPython(CLI::App& app, CommandLine& line) {
    CLI::App* python =
        app.add_subcommand("python", "Run Python code or a Python file in the host's interpreter");
    auto* code = python->add_option("-c", line.code, "Python code to run; an expression's value is printed")
                     ->type_name("CODE");
    auto* file = python->add_option("file", line.file, "A Python file to run as __main__")
                     ->check(CLI::ExistingFile)
                     ->excludes(code);
    python->add_option("args", line.scriptArgs, "Arguments for the file, in sys.argv")->needs(file);
    python->callback([&line] {
        if (line.code.empty() && line.file.empty())
            throw CLI::ValidationError("python", "give -c CODE or a FILE");
        line.action = CommandLine::Action::Python;
    });
}

void addExport(CLI::App& app, CommandLine& line) {
    CLI::App* exporter = app.add_subcommand(
        "export", "Evaluate a mesh node and write it as OBJ, STL, glTF binary or a PNG preview");
    ExportRequest& request = line.exportRequest;
    exporter->add_option("node", request.node, "A mesh shape, or a transform over one")->required();
    exporter
        ->add_option("outputs", request.outputs,
                     "Files to write (.obj, .stl, .glb, .png); with several frames each needs a frame "
                     "number pattern such as out.####.glb or out.%04d.glb")
        ->required()
        ->type_name("OUT");
    auto* frame =
        exporter
            ->add_option_function<double>(
                "--frame",
                [&request](const double& value) {
                    if (!std::isfinite(value) || std::abs(value) > kFrameLimit)
                        throw CLI::ValidationError("--frame", "expected a frame within " +
                                                                  std::to_string(kFrameLimit) + " of 0");
                    request.frame = value;
                },
                "Evaluate at this frame")
            ->type_name("F");
    auto* frames = exporter
                       ->add_option_function<std::string>(
                           "--frames",
                           [&request](const std::string& text) {
                               auto parsed = parseFrameRange(text);
                               if (!parsed)
                                   throw CLI::ValidationError(
                                       "--frames", "expected A:B or A:B:STEP, whole frames within " +
                                                       std::to_string(kFrameLimit) +
                                                       " of 0, A <= B, STEP > 0; got \"" + text + "\"");
                               request.frames = *parsed;
                           },
                           "Evaluate and write every frame from A to B")
                       ->type_name("A:B[:STEP]");
    frame->excludes(frames);
    exporter
        ->add_option("--scene", line.scene, "Run this file first (a scene, command script or Python file)")
        ->check(CLI::ExistingFile)
        ->type_name("FILE");
    const CLI::Validator previewSide = wholeNumberFrom(ZHost::minPreviewSide(), ZHost::maxPreviewSide());
    exporter->add_option("--width", request.previewSize.width, "Width of a PNG preview")
        ->check(previewSide)
        ->type_name("PIXELS");
    exporter->add_option("--height", request.previewSize.height, "Height of a PNG preview")
        ->check(previewSide)
        ->type_name("PIXELS");
    exporter->callback([&line] { line.action = CommandLine::Action::Export; });
}

} // namespace

std::optional<int> parseCommandLine(int argc, char** argv, CommandLine& line) {
    CLI::App app("The Zyvo host: loads plug-ins, runs scripts and scenes, and exports meshes.", "zyvo");
    app.set_version_flag("--version", std::string("zyvo ") + ZYVO_VERSION + " (OpenZyvo API " +
                                          ZHost::apiVersionText() + ")");
    app.require_subcommand(0, 1);
    app.fallthrough();
    addHostOptions(app, line.host);
    auto* listFonts =
        app.add_flag("--list-fonts")->description("List the font families and styles the Type plug-in finds");
    addRun(app, line);
    addPython(app, line);
    addExport(app, line);
    addTextCommand(app, line.textRequest, [&line] { line.action = CommandLine::Action::Text; });
    addSvgCommand(app, line.svgRequest, [&line] { line.action = CommandLine::Action::Svg; });
    try {
        app.parse(argc, argv);
        const auto chosen = app.get_subcommands();
        if (listFonts->count() > 0 && !chosen.empty() && chosen.front()->get_name() != "text")
            throw CLI::ValidationError("--list-fonts", "goes alone or with text");
        if (listFonts->count() > 0 || line.textRequest.listFonts)
            line.action = CommandLine::Action::ListFonts;
        else if (chosen.empty())
            throw CLI::RequiredError::Subcommand(1);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kUsageError;
    }
    return std::nullopt;
}

} // namespace zyvo
