#include "TextCommand.h"

#include "EnumFields.h"
#include "FontChoice.h"
#include "Host.h"
#include "MeshExport.h"
#include "NodeSchema.h"
#include "NodeSettings.h"
#include "NumberOption.h"
#include "SolidOptions.h"
#include "TypeObject.h"

#include <CLI/CLI.hpp>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnStringArrayData.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvoHost/ZHostScripts.h>
#include <algorithm>
#include <cstdio>
#include <initializer_list>

namespace zyvo {

namespace {

constexpr char kCreateText[] = "typeCreateText";
constexpr char kSetText[] = "typeSetText";
constexpr char kTypeNode[] = "type";
// The flat text gets a shape of its own: the text object's shape shows the
// extruded, deformed solid.
constexpr char kFlatTransform[] = "flatText";
constexpr char kFlatShape[] = "flatTextShape";

// What the options accept: sizes a scene can hold, spacings and scales well
// past any layout a user asks for. The alignments and curve resolutions are
// the type node's own, asked of it once the plug-in is loaded.
constexpr double kMinSize = 0.001;
constexpr double kMaxSize = 100000;
constexpr double kMinTracking = -100; // letters on top of each other
constexpr double kMaxTracking = 1000;
constexpr double kMaxScale = 100; // kerning, leading and space width, either sign

void reportError(const std::string& text) {
    ZGlobal::displayError(ZString(text));
}

// The enum values the request named, as the nodes store them.
struct NodeChoices {
    std::optional<short> alignment;
    SolidChoices solid;
};

// The settings only the nodes can check; `choices` gets the values of the
// enum fields asked for.
ZStatus checkNodeSettings(const TextRequest& request, Host& host, NodeChoices& choices) {
    const NodeSchema typeNode(kTypeNode);
    if (request.alignment) {
        // The American spelling names the same alignment.
        const std::string name = sameFieldName(*request.alignment, "center") ? "centre" : *request.alignment;
        if (const ZStatus status =
                typeNode.enumValue("alignmentMode", name, "--align", host, choices.alignment);
            !status)
            return status;
    }
    if (request.curveResolution)
        if (const ZStatus status = typeNode.checkWholeNumber("curveResolution", *request.curveResolution,
                                                             "--curve-resolution", host);
            !status)
            return status;
    return checkSolidSettings(request.solid, host, choices.solid);
}

// The node's layout settings are float attributes.
std::optional<float> asFloat(const std::optional<double>& value) {
    return value ? std::optional(static_cast<float>(*value)) : std::nullopt;
}

// The text goes in through the plug-in's own procedure, which knows the form
// the node keeps it in.
ZStatus setText(const std::string& text, const ZString& typeName) {
    std::vector<std::string> result;
    return ZHost::callProcedure(kSetText, {typeName.asStdString(), text}, result);
}

ZStatus applySettings(const TextRequest& request, const NodeChoices& choices, const ZObject& typeNode) {
    NodeSettings settings(typeNode);
    settings.set("currentFont", request.font ? std::optional(ZString(*request.font)) : std::nullopt);
    // A family of the user's without a style starts on none; chooseFace picks its regular one.
    if (request.font || request.style)
        settings.set("currentStyle", ZString(request.style.value_or("")));
    settings.set("fontSize", asFloat(request.size));
    settings.set("tracking", asFloat(request.tracking));
    settings.set("kerningScale", asFloat(request.kerning));
    settings.set("leadingScale", asFloat(request.leading));
    settings.set("spaceWidthScale", asFloat(request.spaceWidth));
    settings.set("alignmentMode", choices.alignment);
    settings.set("curveResolution", request.curveResolution);
    return settings.status();
}

// The catalogue the type node publishes after its first scan, as family,
// style, family, style, …; reading it brings the node up to date.
ZStatus readCatalogue(const ZObject& typeNode, std::vector<FontFamily>& families) {
    ZStatus status;
    const ZPlug plug = ZFnDependencyNode(typeNode).findPlug("fontStyleList", true, &status);
    ZObject data;
    if (status)
        status = plug.getValue(data);
    ZStringArray pairs;
    if (status)
        status = ZFnStringArrayData(data, &status).copyTo(pairs);
    if (!status) {
        reportError("Cannot read the Type plug-in's font catalogue: " + status.errorString().asStdString());
        return status;
    }
    std::vector<std::string> names;
    for (unsigned int i = 0; i < pairs.length(); ++i)
        names.push_back(pairs[i].asStdString());
    families = fontFamilies(names);
    return ZStatus::kSuccess;
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

std::string currentFont(const ZObject& typeNode) {
    const ZPlug plug = ZFnDependencyNode(typeNode).findPlug("currentFont", true);
    return plug.isNull() ? std::string() : plug.asString().asStdString();
}

// Looks the font up the way the node will and settles the style, so that a
// family named without a style, or with one it lacks, gives its regular
// face rather than whichever face the node finds first. A family the node
// does not have is left to the node, which reports it.
ZStatus chooseFace(const TextRequest& request, const ZObject& typeNode) {
    if (!request.font && !request.style)
        return ZStatus::kSuccess;
    std::vector<FontFamily> families;
    if (const ZStatus status = readCatalogue(typeNode, families); !status)
        return status;
    const FontFamily* family = findFamily(families, request.font ? *request.font : currentFont(typeNode));
    if (!family)
        return ZStatus::kSuccess;
    const StyleChoice choice = chooseStyle(*family, request.style);
    if (choice.unknown)
        ZGlobal::displayWarning(ZString("The font family \"" + family->name + "\" has no style \"" +
                                        *request.style + "\"; its styles are " + joined(family->styles) +
                                        ". Using " + choice.style + "."));
    if (choice.style == request.style.value_or(""))
        return ZStatus::kSuccess;
    NodeSettings settings(typeNode);
    settings.set("currentStyle", ZString(choice.style));
    return settings.status();
}

// An empty mesh would only make the writers complain that there is nothing to
// export; say why instead.
ZStatus checkSomethingDrawn(const ZObject& typeNode, const TextRequest& request) {
    ZStatus status;
    const ZPlug shells = ZFnDependencyNode(typeNode).findPlug("numberOfShells", true, &status);
    if (status && shells.asInt() == 0) {
        reportError("The text \"" + request.text.value_or("") +
                    "\" has no visible character: nothing was written");
        return ZStatus::kInvalidParameter;
    }
    return status;
}

} // namespace

void addTextCommand(CLI::App& app, TextRequest& request, std::function<void()> chosen) {
    CLI::App* text = app.add_subcommand(
        "text", "Lay out a text with the Type plug-in and write its solid or its flat mesh");
    text->add_option("string", request.text, "The text (default: the type node's own, \"3D Type\")");
    text->add_option("--font", request.font, "Font family (default: the one a new text object starts in)")
        ->type_name("FAMILY");
    text->add_option("--style", request.style,
                     "Font style (default: the family's Regular, Book, Roman or Normal face)")
        ->type_name("STYLE");
    text->add_option("--size", request.size, "Height of a line in scene units")
        ->check(numberFrom(kMinSize, kMaxSize))
        ->type_name("S");
    text->add_option("--tracking", request.tracking, "Letter spacing, in percent above 100")
        ->check(numberFrom(kMinTracking, kMaxTracking))
        ->type_name("T");
    const CLI::Validator scale = numberFrom(-kMaxScale, kMaxScale);
    text->add_option("--kerning", request.kerning, "Scale of the horizontal glyph positions")
        ->check(scale)
        ->type_name("K");
    text->add_option("--leading", request.leading, "Scale of the line height")->check(scale)->type_name("L");
    text->add_option("--space-width", request.spaceWidth, "Scale of the width of a space")
        ->check(scale)
        ->type_name("W");
    text->add_option("--align", request.alignment, "Alignment of the lines, one of the type node's")
        ->type_name("ALIGNMENT");
    text->add_option("--curve-resolution", request.curveResolution,
                     "Straight segments per curve, within the type node's limits")
        ->check(wholeNumber())
        ->type_name("N");
    // One file per flag, so that the text after "-o a.obj" stays the text.
    text->add_option("-o,--output", request.outputs,
                     "A file to write the mesh to (.obj, .stl, .glb); repeat for more")
        ->allow_extra_args(false)
        ->type_name("FILE");
    text->add_option("--preview", request.preview, "Also render a PNG preview")->type_name("FILE.png");
    addSolidOptions(*text, request.solid);
    text->add_flag("--list-fonts", request.listFonts, "List the font families and styles instead");
    text->callback([&request, chosen = std::move(chosen)] {
        if (!request.listFonts && request.outputs.empty())
            throw CLI::RequiredError("--output");
        chosen();
    });
}

ZStatus runText(const TextRequest& request, Host& host) {
    if (const ZStatus status = checkMeshOutputs(request.outputs, request.preview, "the text"); !status)
        return status;
    if (const ZStatus status = loadTypePlugin(); !status)
        return status;
    NodeChoices choices;
    if (const ZStatus status = checkNodeSettings(request, host, choices); !status)
        return status;
    TypeObject made;
    if (const ZStatus status = createTypeObject(kCreateText, "text object", made); !status)
        return status;
    if (request.text)
        if (const ZStatus status = setText(*request.text, made.sourceName); !status)
            return status;
    if (const ZStatus status = applySettings(request, choices, made.source); !status)
        return status;
    if (const ZStatus status = applySolidSettings(request.solid, choices.solid, made.extrudeNode); !status)
        return status;
    if (const ZStatus status = chooseFace(request, made.source); !status)
        return status;
    if (const ZStatus status = checkSomethingDrawn(made.source, request); !status)
        return status;
    std::string shown = made.shapeName.asStdString();
    if (request.solid.flat) {
        if (const ZStatus status = showFlatMesh(made.sourceName, kFlatTransform, kFlatShape); !status)
            return status;
        shown = kFlatShape;
    }
    return writeShownMesh(shown, request.outputs, request.preview, request.previewSize, host);
}

ZStatus listFonts() {
    if (const ZStatus status = loadTypePlugin(); !status)
        return status;
    TypeObject made;
    if (const ZStatus status = createTypeObject(kCreateText, "text object", made); !status)
        return status;
    std::vector<FontFamily> families;
    if (const ZStatus status = readCatalogue(made.source, families); !status)
        return status;
    for (const FontFamily& family : families)
        std::printf("%s: %s\n", family.name.c_str(), joined(family.styles).c_str());
    return ZStatus::kSuccess;
}

} // namespace zyvo
