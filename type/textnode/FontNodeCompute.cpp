#include "textnode/FontNodeCompute.h"

#include "fonts/FontFolders.h"
#include "fonts/FontScanner.h"
#include "fonts/FontSelection.h"
#include "layout/LayoutResult.h"
#include "layout/LegacyPath.h"
#include "layout/PreLayoutPath.h"
#include "layout/TextLayoutPath.h"
#include "layout/TypeSettingValues.h"
#include "plugin/ApiError.h"
#include "textnode/FontNode.h"
#include "textnode/ManipulatorArrays.h"
#include "textnode/NodeTextSource.h"
#include "textnode/TextToMesh.h"
#include "textnode/UsableValue.h"
#include "textsource/HexText.h"

#include <OpenZyvo/ZComputation.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnAttribute.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZFnStringArrayData.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPxCommand.h>
#include <algorithm>
#include <initializer_list>
#include <iostream>
#include <utility>
#include <vector>

namespace type {

namespace {

constexpr const char* kUnit = fontNode::kSourceUnit;

bool isOneOf(const ZObject& attribute, std::initializer_list<const ZObject*> attributes) {
    return std::any_of(attributes.begin(), attributes.end(),
                       [&](const ZObject* candidate) { return *candidate == attribute; });
}

// Everything the full pipeline writes.
bool isPipelineOutput(const ZObject& attribute) {
    return isOneOf(attribute, {&fontNode::outputMesh, &fontNode::grouping, &fontNode::solidsPerCharacter,
                               &fontNode::solidsPerWord, &fontNode::solidsPerLine, &fontNode::vertsPerChar,
                               &fontNode::characterBoundingBoxesMax, &fontNode::characterBoundingBoxesMin,
                               &fontNode::manipulatorPivots, &fontNode::holeInfo, &fontNode::numberOfShells,
                               &fontNode::alignmentAdjustments, &fontNode::fontError, &fontNode::homeFolder,
                               &fontNode::fontList, &fontNode::styleList, &fontNode::fontStyleList});
}

// "manipulatorTransforms" and the children it computes; manipulateId and
// manipulatorMode are the user's and keep what was set.
bool isManipulatorOutput(const ZObject& attribute) {
    return isOneOf(attribute,
                   {&fontNode::manipulatorTransforms, &fontNode::manipulatorPositionsPP,
                    &fontNode::manipulatorWordPositionsPP, &fontNode::manipulatorLinePositionsPP,
                    &fontNode::manipulatorRotationsPP, &fontNode::manipulatorWordRotationsPP,
                    &fontNode::manipulatorLineRotationsPP, &fontNode::manipulatorScalesPP,
                    &fontNode::manipulatorWordScalesPP, &fontNode::manipulatorLineScalesPP,
                    &fontNode::manipulatePolygon, &fontNode::manipulateWord, &fontNode::manipulateLine});
}

// Reads and writes values of the node being computed. The first failing host
// call is reported where it was made and ends the evaluation; later calls do
// nothing, so a stage can read all of its values and test once.
class NodeValues {
public:
    using Where = SourceLine;

    explicit NodeValues(ZDataBlock& block)
        : m_block(block) {}

    ZDataHandle input(const ZObject& attribute, Where where = Where::current()) {
        return handle(attribute, true, where);
    }

    // The node's own value, without evaluating it.
    ZDataHandle stored(const ZObject& attribute, Where where = Where::current()) {
        return handle(attribute, false, where);
    }

    void setData(const ZObject& attribute, const ZObject& data, Where where = Where::current()) {
        if (m_status)
            check(stored(attribute, where).setZObject(data), where);
    }

    void setClean(const ZObject& attribute, Where where = Where::current()) {
        if (m_status)
            check(m_block.setClean(attribute), where);
    }

    // Reports a failed status of a call made elsewhere in the stage.
    void check(const ZStatus& status, Where where = Where::current()) {
        if (m_status && !status)
            m_status = reportApiError(status, kUnit, where);
    }

    const ZStatus& status() const { return m_status; }

private:
    ZDataHandle handle(const ZObject& attribute, bool evaluate, Where where) {
        if (!m_status)
            return {};
        ZStatus status;
        ZDataHandle value =
            evaluate ? m_block.inputValue(attribute, &status) : m_block.outputValue(attribute, &status);
        check(status, where);
        return value;
    }

    ZDataBlock& m_block;
    ZStatus m_status;
};

// Bounds far past anything a scene lays out, within which every path keeps
// finite, exact coordinates: outlines scaled by them stay well inside the
// integer range the pre-layout and legacy paths clip in.
constexpr UsableRange kUsableSize{-1.0e5, 1.0e5};
constexpr UsableRange kUsableScale{-1.0e3, 1.0e3};
constexpr UsableRange kUsableTracking{-1.0e4, 1.0e4};
constexpr UsableRange kUsableThreshold{-1.0e5, 1.0e5};
constexpr UsableRange kUsableAdjustment{-1.0e6, 1.0e6};

ZString attributeName(const ZObject& attribute) {
    return ZFnAttribute(attribute).name();
}

// Reads the numeric settings; the first that is not usable is kept for the
// node to report.
class SettingReader {
public:
    explicit SettingReader(NodeValues& values)
        : m_values(values) {}

    double number(const ZObject& attribute, const UsableRange& range) {
        const double value = m_values.input(attribute).asFloat();
        if (!m_unusable)
            m_unusable = unusableValue(attributeName(attribute), value, range);
        return value;
    }

    const std::optional<FontMessage>& unusable() const { return m_unusable; }

private:
    NodeValues& m_values;
    std::optional<FontMessage> m_unusable;
};

// Returns the message for the first numeric setting that cannot be used.
std::optional<FontMessage> readLayoutSettings(NodeValues& values, TypeSettings& settings) {
    SettingReader read(values);
    settings.fontSize = read.number(fontNode::fontSize, kUsableSize);
    settings.curveResolution = std::clamp(values.input(fontNode::curveResolution).asInt(),
                                          curveResolutionLimits::kMin, curveResolutionLimits::kMax);
    settings.kerningScale = static_cast<float>(read.number(fontNode::kerningScale, kUsableScale));
    settings.leadingScale = static_cast<float>(read.number(fontNode::leadingScale, kUsableScale));
    settings.spaceWidthScale = static_cast<float>(read.number(fontNode::spaceWidthScale, kUsableScale));
    settings.tracking = static_cast<float>(read.number(fontNode::tracking, kUsableTracking));
    settings.alignment = static_cast<AlignmentMode>(values.input(fontNode::alignmentMode).asShort());
    settings.thinning.removeColinear = values.input(fontNode::removeColinear).asBool();
    settings.thinning.colinearAngle = read.number(fontNode::colinearAngle, kUsableThreshold);
    settings.thinning.enableDistanceFilter = values.input(fontNode::enableDistanceFilter).asBool();
    settings.thinning.pointDistanceFilter = read.number(fontNode::pointDistanceFilter, kUsableThreshold);
    settings.setParity = values.input(fontNode::setParity).asBool();
    settings.subdivideEdges = values.input(fontNode::deformableType).asBool();
    settings.subdivision.maxDivisions =
        std::clamp(values.input(fontNode::maxDivisions).asInt(), subdivisionLimits::kMinDivisions,
                   subdivisionLimits::kMaxDivisions);
    settings.subdivision.maxEdgeLength =
        std::max(read.number(fontNode::maxEdgeLength, kUsableThreshold), subdivisionLimits::kMinEdgeLength);
    settings.legacyDecomposition = values.input(fontNode::legacyDecomposition).asBool();
    settings.preTLDecompose = values.input(fontNode::preTLDecompose).asBool();
    return read.unusable();
}

// Reading the font folders can take a while: the host shows it is busy and
// lets the user stop; what was found by then stays in the catalogue.
void scanCatalogue(FontCatalogue& catalogue) {
    ZComputation computation;
    const ZString loading = FontMessage{fontMessages::kTypeLoadingFonts, {}}.text();
    FontScanHooks hooks;
    hooks.interruptRequested = [&] {
        return computation.isInterruptRequested();
    };
    hooks.folderStarted = [&](const ZString&) {
        computation.beginComputation(false, true, true);
        computation.setProgressStatus(loading);
    };
    hooks.folderFinished = [&] {
        computation.endComputation();
    };
    scanFontFolders(fontFolders(), catalogue, hooks);
}

ZString joinedLines(const ZStringArray& lines) {
    ZString text;
    for (unsigned int i = 0; i < lines.length(); ++i) {
        if (i > 0)
            text += '\n';
        text += lines[i];
    }
    return text;
}

ZString faceName(const char* name) {
    return name ? ZString(name) : ZString();
}

ZObject doubleArray(const std::vector<double>& values, NodeValues& node) {
    ZStatus status;
    const ZObject data = ZFnDoubleArrayData().create(ZDoubleArray(values), &status);
    node.check(status);
    return data;
}

ZObject vectorArray(const std::vector<Point2>& points, NodeValues& node) {
    ZVectorArray vectors;
    vectors.asVector().reserve(points.size());
    for (const Point2& p : points)
        vectors.append(ZVector(p.x, p.y, 0.0));
    ZStatus status;
    const ZObject data = ZFnVectorArrayData().create(vectors, &status);
    node.check(status);
    return data;
}

ZObject vectorArray(const ZVectorArray& vectors, NodeValues& node) {
    ZStatus status;
    const ZObject data = ZFnVectorArrayData().create(vectors, &status);
    node.check(status);
    return data;
}

ZObject intArray(const std::vector<std::int32_t>& values, NodeValues& node) {
    ZStatus status;
    const ZObject data =
        ZFnIntArrayData().create(ZIntArray(std::vector<int>(values.begin(), values.end())), &status);
    node.check(status);
    return data;
}

ZVectorArray storedVectors(NodeValues& node, const ZObject& attribute) {
    const ZObject data = node.stored(attribute).data();
    ZVectorArray vectors;
    if (!data.isNull())
        ZFnVectorArrayData(data).copyTo(vectors);
    return vectors;
}

ZDoubleArray evaluatedDoubles(NodeValues& node, const ZObject& attribute) {
    const ZObject data = node.input(attribute).data();
    ZDoubleArray values;
    if (!data.isNull())
        ZFnDoubleArrayData(data).copyTo(values);
    return values;
}

ZVector asVector(const std::array<double, 3>& values) {
    return {values[0], values[1], values[2]};
}

// Shows the messages of an evaluation in order and returns the text of the
// last, which is what "fontError" holds.
ZString shown(const std::vector<FontMessage>& messages) {
    ZString last;
    for (const FontMessage& message : messages) {
        last = message.text();
        ZPxCommand::displayError(last);
    }
    return last;
}

} // namespace

ZStatus fontNode::compute(const ZPlug& plug, ZDataBlock& block) {
    return m_compute.compute(thisZObject(), plug, block);
}

ZStatus FontNodeCompute::compute(const ZObject& node, const ZPlug& plug, ZDataBlock& block) {
    const ZObject attribute = plug.attribute();
    // "alignmentAdjustments" sits under "manipulatorTransforms", so every
    // manipulator edit marks it dirty too. While the mesh is clean nothing it
    // depends on changed, and the offsets written with the mesh still hold.
    if (attribute == fontNode::alignmentAdjustments && block.isClean(fontNode::outputMesh))
        return block.setClean(attribute);
    if (isPipelineOutput(attribute))
        return computeOutputs(node, block);
    if (isManipulatorOutput(attribute))
        return computeManipulatorTransforms(block);
    return ZStatus::kUnknownParameter;
}

std::optional<LayoutResult> FontNodeCompute::layOutText(const ZObject& node, ZDataBlock& block,
                                                        const ZString& family, const ZString& style,
                                                        TypeSettings& settings,
                                                        std::vector<FontMessage>& messages) {
    const FontSelection selection = selectFont(m_catalogue, family, style);
    if (selection.message)
        messages.push_back(*selection.message);
    if (!m_face || m_face->path != selection.path || m_face->faceIndex != selection.faceIndex) {
        m_face.reset();
        auto loaded = FontFace::load(selection.path, selection.faceIndex);
        if (const FontMessage* failure = std::get_if<FontMessage>(&loaded)) {
            messages.push_back(*failure);
            return std::nullopt;
        }
        m_face.emplace(
            LoadedFace{selection.path, selection.faceIndex, std::move(std::get<FontFace>(loaded))});
    }
    // The Qt paths find fonts by name: the chosen names when they matched,
    // else those of the face standing in (the family's first face, or the
    // default font), so that Qt draws what the catalogue chose.
    const FT_Face face = m_face->face.face();
    settings.family = (selection.exactStyle ? family : faceName(face->family_name)).asStdString();
    settings.style = (selection.exactStyle ? style : faceName(face->style_name)).asStdString();
    settings.text = layoutTokens(currentHexText(block, node, std::cout));

    LayoutResult layout;
    switch (decompositionPath(settings)) {
    case DecompositionPath::Legacy:
        layout = decomposeLegacy(settings, face);
        break;
    case DecompositionPath::PreLayout:
        layout = decomposePreLayout(settings);
        break;
    case DecompositionPath::TextLayout:
        layout = decomposeTextLayout(settings, m_glyphs);
        break;
    }
    messages.insert(messages.end(), layout.messages.begin(), layout.messages.end());
    return layout;
}

ZStatus FontNodeCompute::computeOutputs(const ZObject& node, ZDataBlock& block) {
    NodeValues values(block);
    const ZString family = values.input(fontNode::currentFont).asString();
    const ZString style = values.input(fontNode::currentStyle).asString();
    TypeSettings settings;
    const std::optional<FontMessage> unusable = readLayoutSettings(values, settings);
    if (!values.status())
        return values.status();

    if (m_catalogue.isEmpty())
        scanCatalogue(m_catalogue);
    // A setting that cannot be used leaves the text out: the mesh and the
    // arrays beside it are written empty, and the message says why.
    std::vector<FontMessage> messages;
    std::optional<LayoutResult> laidOut;
    if (unusable) {
        messages.push_back(*unusable);
        laidOut.emplace();
    } else {
        laidOut = layOutText(node, block, family, style, settings, messages);
    }
    const ZString fontError = shown(messages);
    if (!laidOut) {
        values.stored(fontNode::fontError).set(fontError);
        values.setClean(fontNode::fontError);
        return ZStatus::kFailure;
    }
    LayoutResult& layout = *laidOut;

    ZObject mesh;
    if (const ZStatus built = textToMesh(layout, mesh); !built)
        return built;

    values.setData(fontNode::alignmentAdjustments, doubleArray(layout.lineOffsets, values));
    values.setData(fontNode::solidsPerCharacter, doubleArray(layout.shellsPerCharacter, values));
    values.setData(fontNode::solidsPerWord, doubleArray(layout.shellsPerWord, values));
    values.setData(fontNode::solidsPerLine, doubleArray(layout.shellsPerLine, values));
    values.setData(fontNode::manipulatorPivots, vectorArray(layout.pivots, values));
    values.setData(fontNode::outputMesh, mesh);
    values.stored(fontNode::numberOfShells).set(numberOfShells(layout));
    values.setData(fontNode::vertsPerChar, doubleArray(layout.vertexTotals, values));
    values.setData(fontNode::characterBoundingBoxesMin, vectorArray(layout.boxMin, values));
    values.setData(fontNode::characterBoundingBoxesMax, vectorArray(layout.boxMax, values));
    values.setData(fontNode::holeInfo, intArray(layout.holeInfo, values));
    m_characterBoxes = layout.boxMax.size();

    values.stored(fontNode::fontError).set(fontError);
    values.stored(fontNode::homeFolder).set(homeFolder());
    values.stored(fontNode::fontList).set(joinedLines(m_catalogue.familyNames()));
    values.stored(fontNode::styleList).set(joinedLines(m_catalogue.styleNames(family)));
    ZStatus status;
    values.setData(fontNode::fontStyleList,
                   ZFnStringArrayData().create(m_catalogue.fontStyleList(), &status));
    values.check(status);

    for (const ZObject* output :
         {&fontNode::alignmentAdjustments, &fontNode::grouping, &fontNode::manipulatorPivots,
          &fontNode::outputMesh, &fontNode::numberOfShells, &fontNode::vertsPerChar,
          &fontNode::characterBoundingBoxesMin, &fontNode::characterBoundingBoxesMax, &fontNode::holeInfo,
          &fontNode::fontError, &fontNode::homeFolder, &fontNode::fontList, &fontNode::styleList,
          &fontNode::fontStyleList})
        values.setClean(*output);
    return values.status();
}

ZStatus FontNodeCompute::computeManipulatorTransforms(ZDataBlock& block) {
    NodeValues values(block);
    // An edit is stored against the text of the last full evaluation; only
    // when the text or its layout changed since is that brought up to date
    // first. A drag of the manipulator decomposes nothing.
    if (!block.isClean(fontNode::outputMesh))
        values.input(fontNode::outputMesh);
    const ZDoubleArray perCharacter = evaluatedDoubles(values, fontNode::solidsPerCharacter);
    const ZDoubleArray perWord = evaluatedDoubles(values, fontNode::solidsPerWord);
    const ZDoubleArray perLine = evaluatedDoubles(values, fontNode::solidsPerLine);

    ManipulatorArrays arrays;
    arrays.characters = {storedVectors(values, fontNode::manipulatorPositionsPP),
                         storedVectors(values, fontNode::manipulatorRotationsPP),
                         storedVectors(values, fontNode::manipulatorScalesPP)};
    arrays.words = {storedVectors(values, fontNode::manipulatorWordPositionsPP),
                    storedVectors(values, fontNode::manipulatorWordRotationsPP),
                    storedVectors(values, fontNode::manipulatorWordScalesPP)};
    arrays.lines = {storedVectors(values, fontNode::manipulatorLinePositionsPP),
                    storedVectors(values, fontNode::manipulatorLineRotationsPP),
                    storedVectors(values, fontNode::manipulatorLineScalesPP)};

    ManipulatorEdit edit;
    edit.mode = static_cast<ManipulatorMode>(values.stored(fontNode::manipulatorMode).asShort());
    edit.id = values.stored(fontNode::manipulateId).asInt();
    edit.store = std::exchange(m_adjustmentEdited, false);
    std::optional<FontMessage> unusable;
    const auto adjustment = [&](const ZObject& attribute) {
        const std::array<double, 3> value = values.input(attribute).asDouble3();
        for (const double component : value)
            if (!unusable)
                unusable = unusableValue(attributeName(attribute), component, kUsableAdjustment);
        return asVector(value);
    };
    edit.position = adjustment(fontNode::positionAdjust);
    edit.rotation = adjustment(fontNode::rotationAdjust);
    edit.scale = adjustment(fontNode::scaleAdjust);
    if (!values.status())
        return values.status();
    // An edit that cannot be used is shown and not stored: the stored edits
    // stay as they were.
    if (unusable) {
        ZPxCommand::displayError(unusable->text());
        values.setClean(fontNode::manipulatorTransforms);
        return values.status();
    }

    const ShellGrouping grouping{perCharacter.asVector(), perWord.asVector(), perLine.asVector()};
    const std::optional<ManipulatorPlacement> placement =
        applyManipulatorEdit(arrays, grouping, edit, m_characterBoxes);

    values.setData(fontNode::manipulatorPositionsPP, vectorArray(arrays.characters.positions, values));
    values.setData(fontNode::manipulatorRotationsPP, vectorArray(arrays.characters.rotations, values));
    values.setData(fontNode::manipulatorScalesPP, vectorArray(arrays.characters.scales, values));
    values.setData(fontNode::manipulatorWordPositionsPP, vectorArray(arrays.words.positions, values));
    values.setData(fontNode::manipulatorWordRotationsPP, vectorArray(arrays.words.rotations, values));
    values.setData(fontNode::manipulatorWordScalesPP, vectorArray(arrays.words.scales, values));
    values.setData(fontNode::manipulatorLinePositionsPP, vectorArray(arrays.lines.positions, values));
    values.setData(fontNode::manipulatorLineRotationsPP, vectorArray(arrays.lines.rotations, values));
    values.setData(fontNode::manipulatorLineScalesPP, vectorArray(arrays.lines.scales, values));
    if (placement) {
        values.stored(fontNode::manipulatePolygon).set(placement->firstShell);
        values.stored(fontNode::manipulateWord).set(placement->word);
        values.stored(fontNode::manipulateLine).set(placement->line);
    } else {
        ZPxCommand::displayError(FontMessage{fontMessages::kTypeErrorBBoxArray, {}}.text());
    }
    values.setClean(fontNode::manipulatorTransforms);
    return values.status();
}

} // namespace type
