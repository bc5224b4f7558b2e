#include "SvgCommand.h"

#include "Host.h"
#include "MeshExport.h"
#include "NodeSchema.h"
#include "NodeSettings.h"
#include "NumberOption.h"
#include "TypeObject.h"

#include <CLI/CLI.hpp>
#include <OpenZyvo/ZGlobal.h>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cstdio>

namespace zyvo {

namespace {

constexpr char kCreateSvg[] = "typeCreateSvg";
constexpr char kSvgNode[] = "svgToPoly";
constexpr char kFlatTransform[] = "flatArtwork";
constexpr char kFlatShape[] = "flatArtworkShape";
constexpr short kPasteMode = 2;

constexpr double kMinSize = 0.001;
constexpr double kMaxSize = 100000;
// A document larger than this is no icon or logo; reading it whole would
// only hold the machine's memory.
constexpr qint64 kMaxDocumentBytes = qint64(256) << 20;

void reportError(const std::string& text) {
    ZGlobal::displayError(ZString(text));
}

bool asksForSolid(const SolidRequest& solid) {
    return !solid.flat && (solid.extrude || solid.extrudeDivisions || solid.bevel || solid.bevelDistance ||
                           solid.bevelOffset || solid.bevelDivisions || solid.bevelStyle || solid.backBevel ||
                           solid.offsetMode || solid.noCaps);
}

// Standard input has no path the node could open: its document goes in as
// pasted text.
ZStatus readStandardInput(std::string& document) {
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        reportError("Cannot read the SVG document from standard input");
        return ZStatus::kFailure;
    }
    const QByteArray bytes = input.read(kMaxDocumentBytes + 1);
    if (bytes.size() > kMaxDocumentBytes) {
        reportError("The SVG document on standard input is larger than 256 MB");
        return ZStatus::kInvalidParameter;
    }
    document = bytes.toStdString();
    return ZStatus::kSuccess;
}

ZStatus readFile(const std::string& file, std::string& document) {
    QFile input(QString::fromStdString(file));
    if (input.size() > kMaxDocumentBytes) {
        reportError("The SVG document " + file + " is larger than 256 MB");
        return ZStatus::kInvalidParameter;
    }
    if (!input.open(QIODevice::ReadOnly)) {
        reportError("Cannot read " + file + ": " + input.errorString().toStdString());
        return ZStatus::kFailure;
    }
    document = input.readAll().toStdString();
    return ZStatus::kSuccess;
}

ZStatus applySettings(const SvgRequest& request, const ZObject& svgNode) {
    NodeSettings settings(svgNode);
    if (request.paste || request.file == "-") {
        std::string document;
        const ZStatus read =
            request.file == "-" ? readStandardInput(document) : readFile(request.file, document);
        if (!read)
            return read;
        settings.set("svgMode", kPasteMode);
        settings.set("svgPaste", ZString(document));
    } else {
        // The node opens the file itself, from wherever the scene is evaluated.
        settings.set(
            "svgFilepath",
            ZString(QFileInfo(QString::fromStdString(request.file)).absoluteFilePath().toStdString()));
    }
    if (request.size)
        settings.set("svgSize", static_cast<float>(*request.size));
    settings.set("curveResolution", request.curveResolution);
    settings.set("useArtboard", request.useArtboard);
    return settings.status();
}

// The node has shown why already; an empty mesh would only make the
// writers complain that there is nothing to export.
ZStatus checkSomethingDrawn(const ZObject& svgNode, const SvgRequest& request) {
    ZStatus status;
    const ZFnDependencyNode node(svgNode);
    const ZPlug shells = node.findPlug("numberOfShells", true, &status);
    if (!status || shells.asInt() > 0)
        return status;
    const ZPlug failed = node.findPlug("errorIndicator", true, &status);
    if (status && failed.asBool())
        reportError("The artwork " + request.file + " could not be read: nothing was written");
    else if (status)
        reportError("The artwork " + request.file + " has no filled shape: nothing was written");
    return status ? ZStatus::kInvalidParameter : status;
}

} // namespace

void addSvgCommand(CLI::App& app, SvgRequest& request, std::function<void()> chosen) {
    CLI::App* svg = app.add_subcommand(
        "svg", "Turn SVG artwork into a flat mesh, or a solid, with the Type plug-in and write it");
    svg->add_option("file", request.file, "The SVG document; - reads it from standard input")
        ->required()
        ->type_name("FILE");
    svg->add_flag("--paste", request.paste, "Hand the document to the node as pasted text");
    svg->add_option("--size", request.size, "Height of the artwork in scene units")
        ->check(numberFrom(kMinSize, kMaxSize))
        ->type_name("S");
    svg->add_option("--curve-resolution", request.curveResolution,
                    "Points per curve or arc, within the node's limits")
        ->check(wholeNumber())
        ->type_name("N");
    svg->add_flag("--use-artboard", request.useArtboard,
                  "Scale by the document's viewBox height instead of the artwork's");
    svg->add_option("-o,--output", request.outputs,
                    "A file to write the mesh to (.obj, .stl, .glb); repeat for more")
        ->required()
        ->allow_extra_args(false)
        ->type_name("FILE");
    svg->add_option("--preview", request.preview, "Also render a PNG preview")->type_name("FILE.png");
    addSolidOptions(*svg, request.solid);
    svg->callback(std::move(chosen));
}

ZStatus runSvg(const SvgRequest& request, Host& host) {
    if (const ZStatus status = checkMeshOutputs(request.outputs, request.preview, "the artwork"); !status)
        return status;
    if (request.file != "-" && !QFileInfo(QString::fromStdString(request.file)).isFile()) {
        reportError("No SVG file at " + request.file);
        return ZStatus::kInvalidParameter;
    }
    if (const ZStatus status = loadTypePlugin(); !status)
        return status;
    if (request.curveResolution)
        if (const ZStatus status = NodeSchema(kSvgNode).checkWholeNumber(
                "curveResolution", *request.curveResolution, "--curve-resolution", host);
            !status)
            return status;
    const bool solid = asksForSolid(request.solid);
    SolidChoices choices;
    if (solid)
        if (const ZStatus status = checkSolidSettings(request.solid, host, choices); !status)
            return status;
    TypeObject made;
    if (const ZStatus status = createTypeObject(kCreateSvg, "SVG object", made); !status)
        return status;
    if (const ZStatus status = applySettings(request, made.source); !status)
        return status;
    if (solid)
        if (const ZStatus status = applySolidSettings(request.solid, choices, made.extrudeNode); !status)
            return status;
    if (const ZStatus status = checkSomethingDrawn(made.source, request); !status)
        return status;
    std::string shown = made.shapeName.asStdString();
    if (!solid) {
        if (const ZStatus status = showFlatMesh(made.sourceName, kFlatTransform, kFlatShape); !status)
            return status;
        shown = kFlatShape;
    }
    return writeShownMesh(shown, request.outputs, request.preview, request.previewSize, host);
}

} // namespace zyvo
