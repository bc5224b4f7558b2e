#include "deformers/VectorAdjustments.h"

#include "deformers/ElementCache.h"
#include "deformers/LineAdjustment.h"
#include "deformers/NodeArrays.h"
#include "plugin/ApiError.h"
#include "plugin/AttributeSchema.h"

#include <OpenZyvo/ZDGContext.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZEvaluationNode.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZItGeometry.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZPxGeometryFilter.h>
#include <OpenZyvo/ZThreadPool.h>
#include <OpenZyvo/ZVectorArray.h>
#include <cstdint>
#include <tbb/parallel_for.h>

namespace type {

ZObject vectorAdjustments::shellPositions;
ZObject vectorAdjustments::extrudeDistanceScalePP;
ZObject vectorAdjustments::manipulatorPositionsPP;
ZObject vectorAdjustments::manipulatorWordPositionsPP;
ZObject vectorAdjustments::manipulatorLinePositionsPP;
ZObject vectorAdjustments::manipulatorRotationsPP;
ZObject vectorAdjustments::manipulatorWordRotationsPP;
ZObject vectorAdjustments::manipulatorLineRotationsPP;
ZObject vectorAdjustments::manipulatorScalesPP;
ZObject vectorAdjustments::manipulatorWordScalesPP;
ZObject vectorAdjustments::manipulatorLineScalesPP;
ZObject vectorAdjustments::manipulateId;
ZObject vectorAdjustments::manipulatePolygon;
ZObject vectorAdjustments::manipulateWord;
ZObject vectorAdjustments::manipulateLine;
ZObject vectorAdjustments::alignmentAdjustments;
ZObject vectorAdjustments::manipulatorMode;
ZObject vectorAdjustments::boundingBoxes;
ZObject vectorAdjustments::selectionIndexes;
ZObject vectorAdjustments::manipulatorTransforms;
ZObject vectorAdjustments::alignmentMode;
ZObject vectorAdjustments::solidsPerCharacter;
ZObject vectorAdjustments::solidsPerWord;
ZObject vectorAdjustments::solidsPerLine;
ZObject vectorAdjustments::grouping;
ZObject vectorAdjustments::vertsPerChar;
ZObject vectorAdjustments::vertexGroupIds;

namespace {

constexpr const char* kUnit = vectorAdjustments::kSourceUnit;

// What one line task needs; the tasks share the inputs and write only the
// points and box slots of their own line's characters.
struct LineTask {
    const Adjustments* adjustments = nullptr;
    const Elements* elements = nullptr;
    std::span<const ZPoint> input;
    std::span<ZPoint> points;
    std::vector<Box3>* boxes = nullptr;
    std::vector<std::uint8_t>* laidOut = nullptr;
    int line = 0;
};

ZThreadRetVal adjustLine(void* data) {
    const LineTask& task = *static_cast<const LineTask*>(data);
    for (const CharacterLayout& layout : layoutLine(*task.adjustments, *task.elements, task.line)) {
        const auto character = static_cast<std::size_t>(layout.character);
        const std::span<const int> vertices(task.elements->vertices[character]);
        if (layout.moves())
            (*task.boxes)[character] = adjustCharacter(layout, vertices, task.input, task.points);
        else
            keepElement(vertices, task.input, task.points);
        (*task.laidOut)[character] = 1;
    }
    return nullptr;
}

void runLines(void* data, ZThreadRootTask* root) {
    auto& tasks = *static_cast<std::vector<LineTask>*>(data);
    for (LineTask& task : tasks)
        ZThreadPool::createTask(adjustLine, &task, root);
    ZThreadPool::executeAndJoin(root);
}

ZObject vectorData(const std::vector<ZVector>& values, ZStatus& status) {
    return ZFnVectorArrayData().create(ZVectorArray(values), &status);
}

} // namespace

vectorAdjustments::vectorAdjustments()
    : m_elements(std::make_unique<ElementCache>()) {}

vectorAdjustments::~vectorAdjustments() = default;

void* vectorAdjustments::creator() {
    return new vectorAdjustments;
}

ZStatus vectorAdjustments::initialize() {
    AttributeSchema schema(kUnit);
    shellPositions =
        schema.typed("shellPositions", ZFnData::kVectorArray, {.writable = false, .storable = false});
    schema.add(shellPositions);
    extrudeDistanceScalePP =
        schema.typed("extrudeDistanceScalePP", ZFnData::kDoubleArray, {.storable = true, .hidden = true});
    const auto stored = [&](const char* name) {
        return schema.typed(name, ZFnData::kVectorArray, {.storable = true});
    };
    manipulatorPositionsPP = stored("manipulatorPositionsPP");
    manipulatorWordPositionsPP = stored("manipulatorWordPositionsPP");
    manipulatorLinePositionsPP = stored("manipulatorLinePositionsPP");
    manipulatorRotationsPP = stored("manipulatorRotationsPP");
    manipulatorWordRotationsPP = stored("manipulatorWordRotationsPP");
    manipulatorLineRotationsPP = stored("manipulatorLineRotationsPP");
    manipulatorScalesPP = stored("manipulatorScalesPP");
    manipulatorWordScalesPP = stored("manipulatorWordScalesPP");
    manipulatorLineScalesPP = stored("manipulatorLineScalesPP");
    manipulateId = schema.numeric("manipulateId", ZFnNumericData::kInt, 0.0);
    manipulatePolygon = schema.numeric("manipulatePolygon", ZFnNumericData::kInt, 0.0);
    manipulateWord = schema.numeric("manipulateWord", ZFnNumericData::kInt, 0.0);
    manipulateLine = schema.numeric("manipulateLine", ZFnNumericData::kInt, 0.0);
    alignmentAdjustments = schema.typed("alignmentAdjustments", ZFnData::kDoubleArray);
    manipulatorMode = schema.enumeration("manipulatorMode", 1, {{"Character", 0}, {"Word", 1}, {"Line", 2}});
    schema.add(manipulatorMode);
    boundingBoxes = schema.typed("boundingBoxes", ZFnData::kVectorArray,
                                 {.writable = false, .storable = true, .hidden = true});
    schema.add(boundingBoxes);
    selectionIndexes =
        schema.typed("selectionIndexes", ZFnData::kIntArray, {.storable = false, .hidden = true});
    schema.add(selectionIndexes);
    manipulatorTransforms = schema.compound(
        "manipulatorTransforms",
        {manipulatorPositionsPP, manipulatorWordPositionsPP, manipulatorLinePositionsPP,
         manipulatorRotationsPP, manipulatorWordRotationsPP, manipulatorLineRotationsPP, manipulatorScalesPP,
         manipulatorWordScalesPP, manipulatorLineScalesPP, extrudeDistanceScalePP, manipulateId,
         manipulatePolygon, manipulateWord, manipulateLine, alignmentAdjustments},
        {.readable = true, .hidden = true});
    schema.add(manipulatorTransforms);
    alignmentMode =
        schema.enumeration("alignmentMode", 1, {{"Left", 1}, {"Centre", 2}, {"Right", 3}}, {.hidden = true});
    schema.add(alignmentMode);
    solidsPerCharacter = schema.typed("solidsPerCharacter", ZFnData::kDoubleArray, {.storable = false});
    solidsPerWord = schema.typed("solidsPerWord", ZFnData::kDoubleArray, {.storable = false});
    solidsPerLine = schema.typed("solidsPerLine", ZFnData::kDoubleArray, {.storable = false});
    grouping = schema.compound("grouping", {solidsPerCharacter, solidsPerWord, solidsPerLine},
                               {.readable = true, .writable = true, .hidden = true});
    schema.add(grouping);
    vertsPerChar = schema.typed("vertsPerChar", ZFnData::kDoubleArray, {.storable = true, .hidden = true});
    schema.add(vertsPerChar);
    vertexGroupIds = schema.typed("vertexGroupIds", ZFnData::kIntArray, {.storable = false});
    schema.add(vertexGroupIds);

    schema.affects({manipulatorPositionsPP, manipulatorScalesPP, manipulatorTransforms, alignmentMode,
                    solidsPerCharacter, grouping},
                   {outputGeom, shellPositions, boundingBoxes});
    schema.affects({manipulatorWordPositionsPP, manipulatorLinePositionsPP, manipulatorRotationsPP,
                    manipulatorWordRotationsPP, manipulatorLineRotationsPP, manipulatorWordScalesPP,
                    manipulatorLineScalesPP, manipulateId, manipulatePolygon, manipulateWord, manipulateLine,
                    alignmentAdjustments, manipulatorMode, solidsPerWord, solidsPerLine},
                   {outputGeom});
    schema.affects({vertsPerChar, vertexGroupIds}, {outputGeom, boundingBoxes});
    return schema.status();
}

ZStatus vectorAdjustments::compute(const ZPlug& plug, ZDataBlock& block) {
    // The published positions and boxes are a by-product of deforming.
    if (plug == shellPositions || plug == boundingBoxes) {
        if (const ZStatus status = ZPxGeometryFilter::compute(ZPlug(thisZObject(), outputGeom), block);
            !status)
            return status;
        block.setClean(shellPositions);
        return block.setClean(boundingBoxes);
    }
    pullVertexGroups(block, vertexGroupIds);
    return ZPxGeometryFilter::compute(plug, block);
}

ZStatus vectorAdjustments::setDependentsDirty(const ZPlug& plug, ZPlugArray& affected) {
    if (plug == inputGeom || plug == input)
        m_elements->invalidate();
    return ZPxGeometryFilter::setDependentsDirty(plug, affected);
}

ZStatus vectorAdjustments::preEvaluation(const ZDGContext& context, const ZEvaluationNode& evaluationNode) {
    if (context.isNormal() && evaluationNode.dirtyPlugExists(inputGeom))
        m_elements->invalidate();
    return ZStatus::kSuccess;
}

ZStatus vectorAdjustments::deform(ZDataBlock& block, ZItGeometry& iterator, const ZMatrix&,
                                  unsigned int multiIndex) {
    ZStatus status;
    ZObject mesh;
    if (!(status = readInputMesh(block, thisZObject(), multiIndex, mesh)))
        return reportApiError(status, kUnit);
    if (ZFnMesh(mesh).numPolygons() == 0)
        return ZStatus::kSuccess;

    Adjustments adjustments;
    const std::pair<const ZObject*, std::vector<Point3>*> vectorInputs[] = {
        {&manipulatorPositionsPP, &adjustments.positions},
        {&manipulatorWordPositionsPP, &adjustments.wordPositions},
        {&manipulatorLinePositionsPP, &adjustments.linePositions},
        {&manipulatorRotationsPP, &adjustments.rotations},
        {&manipulatorWordRotationsPP, &adjustments.wordRotations},
        {&manipulatorLineRotationsPP, &adjustments.lineRotations},
        {&manipulatorScalesPP, &adjustments.scales},
        {&manipulatorWordScalesPP, &adjustments.wordScales},
        {&manipulatorLineScalesPP, &adjustments.lineScales}};
    for (const auto& [attribute, target] : vectorInputs)
        if (!(status = readVectors(block, *attribute, *target)))
            return reportApiError(status, kUnit);
    const std::pair<const ZObject*, std::vector<double>*> doubleInputs[] = {
        {&alignmentAdjustments, &adjustments.alignmentAdjustments},
        {&solidsPerCharacter, &adjustments.solidsPerCharacter},
        {&solidsPerWord, &adjustments.solidsPerWord},
        {&solidsPerLine, &adjustments.solidsPerLine}};
    for (const auto& [attribute, target] : doubleInputs)
        if (!(status = readDoubles(block, *attribute, *target)))
            return reportApiError(status, kUnit);
    adjustments.alignment = static_cast<LineAlignment>(block.inputValue(alignmentMode, &status).asShort());
    if (!status)
        return reportApiError(status, kUnit);
    if (adjustments.positions.empty())
        adjustments.positions.assign(adjustments.solidsPerCharacter.size(), Point3{});

    status = m_elements->update(block, thisZObject(), multiIndex, iterator, vertexGroupIds);
    if (!status)
        return reportApiError(status, kUnit);
    const Elements& elements = m_elements->elements();

    // Without adjustments the output is the input as it came.
    std::vector<Box3> boxes = elements.bounds;
    if (canAdjust(adjustments)) {
        const std::span<const ZPoint> input = m_elements->inputPoints();
        ZPointArray& points = m_elements->movedPoints();
        const std::span<ZPoint> moved(points.data(), points.length());
        std::vector<std::uint8_t> laidOut(elements.vertices.size(), 0);
        std::vector<LineTask> tasks;
        for (int line = 0; line < static_cast<int>(adjustments.solidsPerLine.size()); ++line)
            tasks.push_back({&adjustments, &elements, input, moved, &boxes, &laidOut, line});
        if (!(status = ZThreadPool::newParallelRegion(runLines, &tasks)))
            return reportApiError(status, kUnit);
        // Elements no line holds this time may have been moved by an earlier frame.
        tbb::parallel_for(std::size_t{0}, laidOut.size(), [&](std::size_t element) {
            if (!laidOut[element])
                keepElement(std::span<const int>(elements.vertices[element]), input, moved);
        });
        if (!(status = iterator.setAllPositions(points)))
            return reportApiError(status, kUnit);
    }

    std::vector<ZVector> positions;
    std::vector<ZVector> corners;
    for (const Box3& box : boxes) {
        positions.emplace_back(box.min.x, box.min.y, box.min.z);
        corners.emplace_back(box.min.x, box.min.y, box.min.z);
        corners.emplace_back(box.max.x, box.max.y, box.max.z);
    }
    for (const auto& [attribute, values] :
         {std::pair{&shellPositions, &positions}, std::pair{&boundingBoxes, &corners}}) {
        const ZObject data = vectorData(*values, status);
        if (status)
            status = block.outputValue(*attribute, &status).set(data);
        if (!status)
            return reportApiError(status, kUnit);
        block.setClean(*attribute);
    }
    return ZStatus::kSuccess;
}

} // namespace type
