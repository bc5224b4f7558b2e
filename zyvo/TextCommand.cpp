#include "TextCommand.h"

#include "EnumFields.h"
#include "FontChoice.h"
#include "Host.h"
#include "MeshExport.h"
#include "NumberOption.h"

#include <CLI/CLI.hpp>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnStringArrayData.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZSelectionList.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvoHost/ZHostPlugins.h>
#include <OpenZyvoHost/ZHostScripts.h>
#include <algorithm>
#include <cstdio>
#include <initializer_list>

namespace zyvo {

namespace {

constexpr char kPlugin[] = "Type";
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

bool hasFormat(const std::string& file, std::initializer_list<ZHost::MeshFormat> formats) {
    const auto format = ZHost::meshFormatOf(file);
    return format && std::find(formats.begin(), formats.end(), *format) != formats.end();
}

ZStatus checkFiles(const TextRequest& request) {
    if (const ZStatus status = checkDistinctFiles(request.outputs); !status)
        return status;
    for (const std::string& output : request.outputs) {
        if (!hasFormat(output, {ZHost::MeshFormat::Obj, ZHost::MeshFormat::Stl, ZHost::MeshFormat::Glb})) {
            reportError("Cannot write the text to " + output + ": use .obj, .stl or .glb");
            return ZStatus::kInvalidParameter;
        }
    }
    if (!request.preview.empty() && !hasFormat(request.preview, {ZHost::MeshFormat::Png})) {
        reportError("A preview is a .png file, not " + request.preview);
        return ZStatus::kInvalidParameter;
    }
    return ZStatus::kSuccess;
}

// What the type node's schema says of an attribute, asked of the node type
// with the query scripts use.
template <typename Result> ZStatus askTypeNode(const char* query, const char* attribute, Result& result) {
    return ZGlobal::executeCommand(
        ZString(std::string("attributeQuery -type ") + kTypeNode + " " + query + " " + attribute), result);
}

// The value of the alignment the user named, among the type node's own.
ZStatus alignmentValue(const std::string& name, Host& host, std::optional<short>& value) {
    ZStringArray listed;
    if (const ZStatus status = askTypeNode("-listEnum", "alignmentMode", listed); !status)
        return status;
    const auto fields = listed.length() == 1 ? parseEnumFields(listed[0].asStdString()) : std::nullopt;
    if (!fields) {
        reportError("The type node's alignments cannot be read");
        return ZStatus::kFailure;
    }
    const EnumField* field = findField(*fields, name);
    // The American spelling names the same alignment.
    if (!field && sameFieldName(name, "center"))
        field = findField(*fields, "centre");
    if (!field) {
        host.refuseOption("--align", "expected " + fieldChoices(*fields) + ", got " + name);
        return ZStatus::kInvalidParameter;
    }
    value = field->value;
    return ZStatus::kSuccess;
}

ZStatus checkCurveResolution(int resolution, Host& host) {
    ZDoubleArray min;
    ZDoubleArray max;
    ZStatus status = askTypeNode("-minimum", "curveResolution", min);
    if (status)
        status = askTypeNode("-maximum", "curveResolution", max);
    if (!status || min.length() != 1 || max.length() != 1) {
        reportError("The type node's curve resolutions cannot be read");
        return status ? ZStatus::kFailure : status;
    }
    if (resolution < min[0] || resolution > max[0]) {
        host.refuseOption("--curve-resolution",
                          wholeNumberRefusal(static_cast<long>(min[0]), static_cast<long>(max[0]),
                                             std::to_string(resolution)));
        return ZStatus::kInvalidParameter;
    }
    return ZStatus::kSuccess;
}

// The settings only the type node can check; `alignment` gets the value of
// the one asked for.
ZStatus checkNodeSettings(const TextRequest& request, Host& host, std::optional<short>& alignment) {
    if (request.alignment)
        if (const ZStatus status = alignmentValue(*request.alignment, host, alignment); !status)
            return status;
    if (request.curveResolution)
        return checkCurveResolution(*request.curveResolution, host);
    return ZStatus::kSuccess;
}

ZStatus loadTypePlugin() {
    return ZHost::isPluginLoaded(kPlugin) ? ZStatus::kSuccess : ZHost::loadPlugin(kPlugin);
}

// The type node of a new text object, made by the plug-in's procedure.
ZStatus createTextObject(ZObject& typeNode, ZString& typeName) {
    ZStringArray nodes;
    if (const ZStatus status = ZGlobal::executeCommand(kCreateText, nodes); !status || nodes.length() == 0) {
        reportError(std::string("The Type plug-in's ") + kCreateText + " made no text object");
        return status ? ZStatus::kFailure : status;
    }
    typeName = nodes[0];
    ZSelectionList list;
    if (const ZStatus status = list.add(typeName); !status)
        return status;
    return list.getDependNode(0, typeNode);
}

// The node's layout settings are float attributes.
std::optional<float> asFloat(const std::optional<double>& value) {
    return value ? std::optional(static_cast<float>(*value)) : std::nullopt;
}

class TypeSettings {
public:
    explicit TypeSettings(const ZObject& node)
        : m_node(node) {}

    template <typename Value> void set(const char* attribute, const Value& value) {
        if (!m_status)
            return;
        ZStatus status;
        ZPlug plug = m_node.findPlug(attribute, true, &status);
        if (status)
            status = plug.setValue(value);
        if (!status) {
            reportError(std::string("Cannot set the type node's ") + attribute + ": " +
                        status.errorString().asStdString());
            m_status = status;
        }
    }

    template <typename Value> void set(const char* attribute, const std::optional<Value>& value) {
        if (value)
            set(attribute, *value);
    }

    ZStatus status() const { return m_status; }

private:
    ZFnDependencyNode m_node;
    ZStatus m_status;
};

// The text goes in through the plug-in's own procedure, which knows the form
// the node keeps it in.
ZStatus setText(const std::string& text, const ZString& typeName) {
    std::vector<std::string> result;
    return ZHost::callProcedure(kSetText, {typeName.asStdString(), text}, result);
}

ZStatus applySettings(const TextRequest& request, std::optional<short> alignment, const ZObject& typeNode) {
    TypeSettings settings(typeNode);
    settings.set("currentFont", request.font ? std::optional(ZString(*request.font)) : std::nullopt);
    // A family of the user's without a style starts on none; chooseFace picks its regular one.
    if (request.font || request.style)
        settings.set("currentStyle", ZString(request.style.value_or("")));
    settings.set("fontSize", asFloat(request.size));
    settings.set("tracking", asFloat(request.tracking));
    settings.set("kerningScale", asFloat(request.kerning));
    settings.set("leadingScale", asFloat(request.leading));
    settings.set("spaceWidthScale", asFloat(request.spaceWidth));
    settings.set("alignmentMode", alignment);
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
    TypeSettings settings(typeNode);
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

ZStatus showFlatText(const ZString& typeName) {
    const ZString commands = ZString("createNode transform -n ") + kFlatTransform + ";\ncreateNode mesh -n " +
                             kFlatShape + " -p " + kFlatTransform + ";\nconnectAttr " + typeName +
                             ".outputMesh " + kFlatShape + ".inMesh;\n";
    return ZGlobal::executeCommand(commands);
}

} // namespace

void addTextCommand(CLI::App& app, TextRequest& request, std::function<void()> chosen) {
    CLI::App* text =
        app.add_subcommand("text", "Lay out a text with the Type plug-in and write its flat mesh");
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
    text->add_flag("--list-fonts", request.listFonts, "List the font families and styles instead");
    text->callback([&request, chosen = std::move(chosen)] {
        if (!request.listFonts && request.outputs.empty())
            throw CLI::RequiredError("--output");
        chosen();
    });
}

ZStatus runText(const TextRequest& request, Host& host) {
    if (const ZStatus status = checkFiles(request); !status)
        return status;
    if (const ZStatus status = loadTypePlugin(); !status)
        return status;
    std::optional<short> alignment;
    if (const ZStatus status = checkNodeSettings(request, host, alignment); !status)
        return status;
    ZObject typeNode;
    ZString typeName;
    if (const ZStatus status = createTextObject(typeNode, typeName); !status)
        return status;
    if (request.text)
        if (const ZStatus status = setText(*request.text, typeName); !status)
            return status;
    if (const ZStatus status = applySettings(request, alignment, typeNode); !status)
        return status;
    if (const ZStatus status = chooseFace(request, typeNode); !status)
        return status;
    if (const ZStatus status = checkSomethingDrawn(typeNode, request); !status)
        return status;
    if (const ZStatus status = showFlatText(typeName); !status)
        return status;

    ZHost::MeshScene scene;
    if (const ZStatus status = ZHost::gatherMeshes({kFlatShape}, scene); !status)
        return status;
    std::vector<std::string> files = request.outputs;
    if (!request.preview.empty())
        files.push_back(request.preview);
    for (const std::string& file : files) {
        if (const ZStatus status = ZHost::writeMeshes(scene, file, request.previewSize); !status)
            return status;
        host.info("Wrote " + file);
    }
    return ZStatus::kSuccess;
}

ZStatus listFonts() {
    if (const ZStatus status = loadTypePlugin(); !status)
        return status;
    ZObject typeNode;
    ZString typeName;
    if (const ZStatus status = createTextObject(typeNode, typeName); !status)
        return status;
    std::vector<FontFamily> families;
    if (const ZStatus status = readCatalogue(typeNode, families); !status)
        return status;
    for (const FontFamily& family : families)
        std::printf("%s: %s\n", family.name.c_str(), joined(family.styles).c_str());
    return ZStatus::kSuccess;
}

} // namespace zyvo
