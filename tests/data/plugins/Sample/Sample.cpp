// A well-formed plug-in: a node type, a command with a syntax, a context
// command, a draw override and UI strings, and host-side scripts whose
// procedures run while it initialises and uninitialises. Its
// uninitializePlugin removes only the node type and the command, as a plug-in
// that forgets the rest would; the host must remove the rest.
#include <OpenZyvo/ZApiVersion.h>
#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnPlugin.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPxCommand.h>
#include <OpenZyvo/ZPxContextCommand.h>
#include <OpenZyvo/ZStringResource.h>
#include <OpenZyvoRender/ZDrawRegistry.h>
#include <OpenZyvoRender/ZPxDrawOverride.h>

ZYVO_DEFINE_API_VERSION;

namespace {

const ZTypeId kSampleNodeId(0x7f0101);
const ZString kClassification("drawdb/geometry/sampleNode");
const ZString kRegistrant("sampleDrawOverride");

// output = 2 * input.
class SampleNode : public ZPxNode {
public:
    static ZObject input, output;

    static void* creator() { return new SampleNode; }
    static ZStatus initialize() {
        ZFnNumericAttribute numeric;
        input = numeric.create("input", "in", ZFnNumericData::kDouble, 0.0);
        output = numeric.create("output", "out", ZFnNumericData::kDouble, 0.0);
        numeric.setWritable(false);
        numeric.setStorable(false);
        addAttribute(input);
        addAttribute(output);
        return attributeAffects(input, output);
    }

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override {
        if (plug != output)
            return ZStatus::kUnknownParameter;
        block.outputValue(output).set(2.0 * block.inputValue(input).asDouble());
        return block.setClean(plug);
    }
};

ZObject SampleNode::input;
ZObject SampleNode::output;

// sampleCommand -value V: returns V + 1. Undoable, so that the undo queue
// holds an instance of this library's code.
class SampleCommand : public ZPxCommand {
public:
    static void* creator() { return new SampleCommand; }
    static ZSyntax newSyntax() {
        ZSyntax syntax;
        syntax.addFlag("-v", "-value", ZSyntax::kDouble);
        return syntax;
    }

    ZStatus doIt(const ZArgList& args) override {
        ZStatus status;
        const ZArgDatabase database(syntax(), args, &status);
        if (!status)
            return status;
        double value = 0.0;
        database.getFlagArgument("-value", 0, value);
        setResult(value + 1.0);
        return ZStatus::kSuccess;
    }
    ZStatus undoIt() override { return ZStatus::kSuccess; }
    bool isUndoable() const override { return true; }
};

class SampleContextCommand : public ZPxContextCommand {
public:
    static void* creator() { return new SampleContextCommand; }
    ZPxContext* makeObj() override { return nullptr; }
};

class SampleDrawOverride : public ZHWRender::ZPxDrawOverride {
public:
    static ZHWRender::ZPxDrawOverride* creator(const ZObject& node) { return new SampleDrawOverride(node); }
    ZHWRender::ZUserData* prepareForDraw(const ZDagPath&, ZHWRender::ZUserData* oldData) override {
        return oldData ? oldData : new ZHWRender::ZUserData;
    }
    bool isBounded(const ZDagPath&) const override { return true; }

private:
    explicit SampleDrawOverride(const ZObject& node)
        : ZPxDrawOverride(node) {}
};

ZStatus registerStrings() {
    return ZStringResource::registerString(
        ZStringResourceId("Sample", "kSampleGreeting", "Hello from Sample"));
}

} // namespace

ZYVO_PLUGIN_EXPORT ZStatus initializePlugin(ZObject object) {
    ZStatus status;
    ZFnPlugin plugin(object, "Sample Makers", "1.5", "Any", &status);
    if (!status)
        return status;
    if (!(status = plugin.registerUIStrings(registerStrings, "sampleInitStrings")))
        return status;
    if (!(status = plugin.registerNode("sampleNode", kSampleNodeId, SampleNode::creator,
                                       SampleNode::initialize, ZPxNode::kDependNode, &kClassification)))
        return status;
    if (!(status = plugin.registerCommand("sampleCommand", SampleCommand::creator, SampleCommand::newSyntax)))
        return status;
    if (!(status = plugin.registerContextCommand("sampleContext", SampleContextCommand::creator)))
        return status;
    if (!(status = ZHWRender::ZDrawRegistry::registerDrawOverrideCreator(kClassification, kRegistrant,
                                                                         SampleDrawOverride::creator)))
        return status;
    return ZGlobal::executeCommand("sampleInitPlugin");
}

ZYVO_PLUGIN_EXPORT ZStatus uninitializePlugin(ZObject object) {
    ZFnPlugin plugin(object);
    ZStatus status = plugin.deregisterCommand("sampleCommand");
    if (!status)
        return status;
    if (!(status = plugin.deregisterNode(kSampleNodeId)))
        return status;
    return ZGlobal::executeCommand("sampleUninitPlugin");
}
