#include "textnode/NodeTextSource.h"

#include "textnode/FontNode.h"
#include "textsource/TextGenerator.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZObjectArray.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvoAnim/ZAnimUtil.h>
#include <OpenZyvoAnim/ZFnAnimCurve.h>

namespace type {

GeneratorSettings generatorSettings(ZDataBlock& block) {
    GeneratorSettings settings;
    settings.mode = static_cast<GeneratorMode>(block.inputValue(fontNode::generator).asShort());
    // The generator counts in the unit the user works in.
    settings.timeUnit = ZTime::uiUnit();
    settings.time = block.inputValue(fontNode::time).asTime().as(settings.timeUnit);
    settings.countdown = block.inputValue(fontNode::countdown).asInt();
    settings.changeRate = block.inputValue(fontNode::changeRate).asInt();
    const auto range = block.inputValue(fontNode::randomRange).asInt2();
    settings.randomMin = range[0];
    settings.randomMax = range[1];
    settings.length = block.inputValue(fontNode::length).asInt();
    settings.decimalPlaces = block.inputValue(fontNode::decimalPlaces).asInt();
    settings.randomSeed = block.inputValue(fontNode::randomSeed).asInt();
    settings.percent = block.inputValue(fontNode::percent).asInt();
    settings.reverse = block.inputValue(fontNode::reverse).asBool();
    settings.random = block.inputValue(fontNode::random).asBool();
    settings.delay = block.inputValue(fontNode::delay).asFloat();
    settings.randomizerMode =
        static_cast<RandomizerMode>(block.inputValue(fontNode::randomizerMode).asShort());
    settings.animatedType = block.inputValue(fontNode::animatedType).asString().asStdString();
    settings.pythonExpression = block.inputValue(fontNode::pythonExpression).asString().asStdString();
    settings.textInput = block.inputValue(fontNode::textInput).asString().asStdString();
    return settings;
}

TextGeneratorHost textGeneratorHost(const ZObject& node) {
    TextGeneratorHost host;
    host.runPython = [](const std::string& statements) {
        return static_cast<bool>(ZGlobal::executePythonCommand(ZString(statements)));
    };
    host.evaluatePython = [](const std::string& expression) -> std::optional<std::string> {
        ZString result;
        if (!ZGlobal::executePythonCommand(ZString(expression), result))
            return std::nullopt;
        return result.asStdString();
    };
    host.percentAt = [node](const std::vector<double>& times) -> std::optional<std::vector<double>> {
        ZObjectArray curves;
        if (!ZAnimUtil::findAnimation(ZPlug(node, fontNode::percent), curves) || curves.length() == 0)
            return std::nullopt;
        const ZFnAnimCurve curve(curves[0]);
        std::vector<double> values;
        values.reserve(times.size());
        for (const double time : times) {
            double value = 0.0;
            if (!curve.evaluate(ZTime(time), value))
                return std::nullopt;
            values.push_back(value);
        }
        return values;
    };
    return host;
}

std::string currentHexText(ZDataBlock& block, const ZObject& node, std::ostream& diagnostics) {
    return generateText(generatorSettings(block), textGeneratorHost(node), diagnostics);
}

} // namespace type
