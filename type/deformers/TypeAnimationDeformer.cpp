#include "deformers/TypeAnimationDeformer.h"

#include "deformers/ChannelSampler.h"
#include "deformers/ElementCache.h"
#include "deformers/ElementDelays.h"
#include "deformers/ElementMotion.h"
#include "deformers/FrameTiming.h"
#include "deformers/NodeArrays.h"
#include "plugin/ApiError.h"
#include "plugin/AttributeSchema.h"

#include <OpenZyvo/ZDGContext.h>
#include <OpenZyvo/ZDGContextGuard.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZEvaluationNode.h>
#include <OpenZyvo/ZFnArrayAttrsData.h>
#include <OpenZyvo/ZFnAttribute.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZItGeometry.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZVectorArray.h>
#include <algorithm>
#include <ctime>
#include <iostream>
#include <numbers>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

namespace type {

ZObject TypeAnimationDeformer::triggeredByHOVA;
ZObject TypeAnimationDeformer::inputPoints;
ZObject TypeAnimationDeformer::rotationPivotPointsPP;
ZObject TypeAnimationDeformer::scalePivotPointsPP;
ZObject TypeAnimationDeformer::time;
ZObject TypeAnimationDeformer::solidsPerCharacter;
ZObject TypeAnimationDeformer::solidsPerWord;
ZObject TypeAnimationDeformer::solidsPerLine;
ZObject TypeAnimationDeformer::grouping;
ZObject TypeAnimationDeformer::positionInPP;
ZObject TypeAnimationDeformer::scaleInPP;
ZObject TypeAnimationDeformer::rotationInPP;
ZObject TypeAnimationDeformer::translateInPP;
ZObject TypeAnimationDeformer::enableAnimation;
ZObject TypeAnimationDeformer::randomDelay;
ZObject TypeAnimationDeformer::reverseOrder;
ZObject TypeAnimationDeformer::animationPositionX;
ZObject TypeAnimationDeformer::animationPositionY;
ZObject TypeAnimationDeformer::animationPositionZ;
ZObject TypeAnimationDeformer::animationPosition;
ZObject TypeAnimationDeformer::animationRotationX;
ZObject TypeAnimationDeformer::animationRotationY;
ZObject TypeAnimationDeformer::animationRotationZ;
ZObject TypeAnimationDeformer::animationRotation;
ZObject TypeAnimationDeformer::animationScaleX;
ZObject TypeAnimationDeformer::animationScaleY;
ZObject TypeAnimationDeformer::animationScaleZ;
ZObject TypeAnimationDeformer::animationScale;
ZObject TypeAnimationDeformer::enablePivotDisplay;
ZObject TypeAnimationDeformer::xPivotLocation;
ZObject TypeAnimationDeformer::yPivotLocation;
ZObject TypeAnimationDeformer::zPivotLocation;
ZObject TypeAnimationDeformer::localXRotationPivot;
ZObject TypeAnimationDeformer::localYRotationPivot;
ZObject TypeAnimationDeformer::localZRotationPivot;
ZObject TypeAnimationDeformer::localYScalePivot;
ZObject TypeAnimationDeformer::localXScalePivot;
ZObject TypeAnimationDeformer::localZScalePivot;
ZObject TypeAnimationDeformer::randomSeed;
ZObject TypeAnimationDeformer::offsetFrames;
ZObject TypeAnimationDeformer::animationMode;
ZObject TypeAnimationDeformer::vertsPerChar;
ZObject TypeAnimationDeformer::vertexGroupIds;
ZObject TypeAnimationDeformer::legacy2018;

namespace {

constexpr const char* kUnit = TypeAnimationDeformer::kSourceUnit;

} // namespace

TypeAnimationDeformer::TypeAnimationDeformer()
    : m_elements(std::make_unique<ElementCache>())
    , m_timing(timingRequested()) {}

TypeAnimationDeformer::~TypeAnimationDeformer() = default;

void* TypeAnimationDeformer::creator() {
    return new TypeAnimationDeformer;
}

ZStatus TypeAnimationDeformer::initialize() {
    using Kind = ZFnNumericData;
    AttributeSchema schema(kUnit);
    triggeredByHOVA =
        schema.numeric("triggeredByHOVA", Kind::kBoolean, 0.0, {.readable = false, .hidden = true});
    schema.add(triggeredByHOVA);
    if (schema.status())
        if (const ZStatus status = ZFnAttribute(triggeredByHOVA).setConnectable(false); !status)
            return reportApiError(status, kUnit);
    inputPoints = schema.typed("inputPoints", ZFnData::kDynArrayAttrs);
    schema.add(inputPoints);
    rotationPivotPointsPP =
        schema.typed("rotationPivotPointsPP", ZFnData::kVectorArray, {.writable = false, .storable = false});
    schema.add(rotationPivotPointsPP);
    scalePivotPointsPP =
        schema.typed("scalePivotPointsPP", ZFnData::kVectorArray, {.writable = false, .storable = false});
    schema.add(scalePivotPointsPP);
    time = schema.unit({"time", "ti"}, ZFnUnitAttribute::kTime, 1.0);
    schema.add(time);
    solidsPerCharacter = schema.typed("solidsPerCharacter", ZFnData::kDoubleArray, {.storable = true});
    solidsPerWord = schema.typed("solidsPerWord", ZFnData::kDoubleArray, {.storable = true});
    solidsPerLine = schema.typed("solidsPerLine", ZFnData::kDoubleArray, {.storable = true});
    grouping = schema.compound("grouping", {solidsPerCharacter, solidsPerWord, solidsPerLine},
                               {.readable = true, .writable = true});
    schema.add(grouping);
    positionInPP = schema.typed("positionInPP", ZFnData::kVectorArray, {.storable = true});
    scaleInPP = schema.typed("scaleInPP", ZFnData::kVectorArray, {.storable = true});
    rotationInPP = schema.typed("rotationInPP", ZFnData::kVectorArray, {.storable = true});
    translateInPP =
        schema.compound("translateInPP", {positionInPP, scaleInPP, rotationInPP}, {.readable = true});
    schema.add(translateInPP);
    enableAnimation = schema.numeric("enableAnimation", Kind::kBoolean, 0.0);
    schema.add(enableAnimation);
    randomDelay = schema.numeric("randomDelay", Kind::kBoolean, 0.0);
    schema.add(randomDelay);
    reverseOrder = schema.numeric("reverseOrder", Kind::kBoolean, 0.0);
    schema.add(reverseOrder);

    const AttributeFlags channel{.writable = true, .storable = true, .keyable = true};
    animationPositionX = schema.unit("animationPositionX", ZFnUnitAttribute::kDistance, 0.0, channel);
    animationPositionY = schema.unit("animationPositionY", ZFnUnitAttribute::kDistance, 0.0, channel);
    animationPositionZ = schema.unit("animationPositionZ", ZFnUnitAttribute::kDistance, 0.0, channel);
    animationPosition = schema.compound(
        "animationPosition", {animationPositionX, animationPositionY, animationPositionZ}, {.keyable = true});
    schema.add(animationPosition);
    animationRotationX = schema.unit("animationRotationX", ZFnUnitAttribute::kAngle, 0.0, {.keyable = true});
    animationRotationY = schema.unit("animationRotationY", ZFnUnitAttribute::kAngle, 0.0, {.keyable = true});
    animationRotationZ = schema.unit("animationRotationZ", ZFnUnitAttribute::kAngle, 0.0, {.keyable = true});
    animationRotation = schema.compound(
        "animationRotation", {animationRotationX, animationRotationY, animationRotationZ}, {.keyable = true});
    schema.add(animationRotation);
    animationScaleX = schema.numeric("animationScaleX", Kind::kDouble, 1.0, {.keyable = true});
    animationScaleY = schema.numeric("animationScaleY", Kind::kDouble, 1.0, {.keyable = true});
    animationScaleZ = schema.numeric("animationScaleZ", Kind::kDouble, 1.0, {.keyable = true});
    animationScale = schema.compound("animationScale", {animationScaleX, animationScaleY, animationScaleZ},
                                     {.keyable = true});
    schema.add(animationScale);

    enablePivotDisplay = schema.numeric("enablePivotDisplay", Kind::kBoolean, 0.0);
    schema.add(enablePivotDisplay);
    const AttributeRange fraction{.softMin = 0.0, .softMax = 1.0};
    xPivotLocation = schema.numeric("xPivotLocation", Kind::kFloat, 0.5, {.keyable = true}, fraction);
    schema.add(xPivotLocation);
    yPivotLocation = schema.numeric("yPivotLocation", Kind::kFloat, 0.5, {.keyable = true}, fraction);
    schema.add(yPivotLocation);
    zPivotLocation = schema.numeric("zPivotLocation", Kind::kFloat, 0.5, {.keyable = true}, fraction);
    schema.add(zPivotLocation);
    // X and Z pivot on each character, Y on the whole text: the characters of
    // a line turn and grow about a common baseline height.
    localXRotationPivot = schema.numeric("localXRotationPivot", Kind::kBoolean, 1.0);
    schema.add(localXRotationPivot);
    localYRotationPivot = schema.numeric("localYRotationPivot", Kind::kBoolean, 0.0);
    schema.add(localYRotationPivot);
    localZRotationPivot = schema.numeric("localZRotationPivot", Kind::kBoolean, 1.0);
    schema.add(localZRotationPivot);
    localYScalePivot = schema.numeric("localYScalePivot", Kind::kBoolean, 0.0);
    schema.add(localYScalePivot);
    localXScalePivot = schema.numeric("localXScalePivot", Kind::kBoolean, 1.0);
    schema.add(localXScalePivot);
    localZScalePivot = schema.numeric("localZScalePivot", Kind::kBoolean, 1.0);
    schema.add(localZScalePivot);
    randomSeed = schema.numeric("randomSeed", Kind::kInt, 0.0, {}, {.min = 0.0, .softMax = 100.0});
    schema.add(randomSeed);
    offsetFrames = schema.numeric("offsetFrames", Kind::kFloat, 50.0, {.keyable = true},
                                  {.softMin = -100.0, .softMax = 100.0});
    schema.add(offsetFrames);
    animationMode = schema.enumeration("animationMode", 1, {{"Character", 1}, {"Word", 2}, {"Line", 3}});
    schema.add(animationMode);
    vertsPerChar = schema.typed("vertsPerChar", ZFnData::kDoubleArray, {.storable = true});
    schema.add(vertsPerChar);
    vertexGroupIds = schema.typed("vertexGroupIds", ZFnData::kIntArray, {.storable = false});
    schema.add(vertexGroupIds);
    legacy2018 = schema.numeric("legacy2018", Kind::kBoolean, 0.0);
    schema.add(legacy2018);

    schema.affects({inputPoints}, {outputGeom, triggeredByHOVA});
    schema.affects({time,
                    randomDelay,
                    reverseOrder,
                    animationPositionX,
                    animationPositionY,
                    animationPositionZ,
                    animationPosition,
                    animationRotationX,
                    animationRotationY,
                    animationRotationZ,
                    animationRotation,
                    animationScaleX,
                    animationScaleY,
                    animationScaleZ,
                    animationScale,
                    translateInPP,
                    enablePivotDisplay,
                    xPivotLocation,
                    yPivotLocation,
                    zPivotLocation,
                    localXRotationPivot,
                    localYRotationPivot,
                    localZRotationPivot,
                    localYScalePivot,
                    localXScalePivot,
                    localZScalePivot,
                    randomSeed,
                    offsetFrames,
                    animationMode},
                   {outputGeom, scalePivotPointsPP, rotationPivotPointsPP});
    schema.affects({enableAnimation, vertsPerChar, vertexGroupIds, legacy2018}, {outputGeom});
    return schema.status();
}

ZStatus TypeAnimationDeformer::compute(const ZPlug& plug, ZDataBlock& block) {
    // The pivots are a by-product of deforming every geometry.
    if (plug == rotationPivotPointsPP || plug == scalePivotPointsPP) {
        if (const ZStatus status = ZPxGeometryFilter::compute(ZPlug(thisZObject(), outputGeom), block);
            !status)
            return status;
        block.setClean(rotationPivotPointsPP);
        return block.setClean(scalePivotPointsPP);
    }
    pullVertexGroups(block, vertexGroupIds);
    return ZPxGeometryFilter::compute(plug, block);
}

ZStatus TypeAnimationDeformer::setDependentsDirty(const ZPlug& plug, ZPlugArray& affected) {
    if (plug == inputGeom || plug == input)
        m_elements->invalidate();
    return ZPxGeometryFilter::setDependentsDirty(plug, affected);
}

ZStatus TypeAnimationDeformer::preEvaluation(const ZDGContext& context,
                                             const ZEvaluationNode& evaluationNode) {
    if (context.isNormal() && evaluationNode.dirtyPlugExists(inputGeom))
        m_elements->invalidate();
    return ZStatus::kSuccess;
}

ZStatus TypeAnimationDeformer::readOffsets(ZDataBlock& block, AnimationFrame& frame) {
    ZStatus status;
    if (!ZPlug(thisZObject(), inputPoints).isConnected()) {
        for (auto [attribute, target] :
             {std::pair{&positionInPP, &frame.positionIn}, std::pair{&rotationInPP, &frame.rotationIn},
              std::pair{&scaleInPP, &frame.scaleIn}}) {
            if (!(status = readVectors(block, *attribute, *target)))
                return reportApiError(status, kUnit);
        }
        return ZStatus::kSuccess;
    }
    const ZObject data = block.inputValue(inputPoints, &status).data();
    if (!status)
        return reportApiError(status, kUnit);
    if (data.isNull())
        return ZStatus::kSuccess;
    const ZFnArrayAttrsData stream(data);
    ZFnArrayAttrsData::Type kind = ZFnArrayAttrsData::kInvalidArray;
    if (stream.checkArrayExist("position", kind) && kind == ZFnArrayAttrsData::kVectorArray)
        frame.positionIn = toPoints(stream.getVectorData("position"));
    const std::size_t count = frame.positionIn.size();
    frame.rotationIn.assign(count, Point3{});
    frame.scaleIn.assign(count, Point3{1.0, 1.0, 1.0});
    if (stream.checkArrayExist("rotation", kind) && kind == ZFnArrayAttrsData::kVectorArray) {
        // The stream carries degrees.
        frame.rotationIn = toPoints(stream.getVectorData("rotation"));
        for (Point3& turn : frame.rotationIn)
            turn = {turn.x * std::numbers::pi / 180.0, turn.y * std::numbers::pi / 180.0,
                    turn.z * std::numbers::pi / 180.0};
    }
    if (stream.checkArrayExist("scale", kind) && kind == ZFnArrayAttrsData::kVectorArray)
        frame.scaleIn = toPoints(stream.getVectorData("scale"));
    if (stream.checkArrayExist("typeOffsets", kind) && kind == ZFnArrayAttrsData::kVectorArray &&
        !block.isClean(triggeredByHOVA)) {
        const std::vector<Point3> offsets = toPoints(stream.getVectorData("typeOffsets"));
        for (std::size_t i = 0; i < offsets.size() && i < frame.positionIn.size(); ++i)
            frame.positionIn[i] = {frame.positionIn[i].x - offsets[i].x, frame.positionIn[i].y - offsets[i].y,
                                   frame.positionIn[i].z - offsets[i].z};
    }
    return ZStatus::kSuccess;
}

ZStatus TypeAnimationDeformer::readSettings(ZDataBlock& block, AnimationFrame& frame, bool& pivotDisplay) {
    ZStatus status;
    const auto value = [&](const ZObject& attribute) {
        ZDataHandle handle = status ? block.inputValue(attribute, &status) : ZDataHandle();
        return handle;
    };
    frame.envelope = value(envelope).asFloat();
    frame.pivotLocation = {value(xPivotLocation).asFloat(), value(yPivotLocation).asFloat(),
                           value(zPivotLocation).asFloat()};
    frame.localRotationPivot = {value(localXRotationPivot).asBool(), value(localYRotationPivot).asBool(),
                                value(localZRotationPivot).asBool()};
    frame.localScalePivot = {value(localXScalePivot).asBool(), value(localYScalePivot).asBool(),
                             value(localZScalePivot).asBool()};
    pivotDisplay = value(enablePivotDisplay).asBool();
    frame.grouping = static_cast<AnimationGrouping>(value(animationMode).asShort());
    frame.position = {value(animationPositionX).asDouble(), value(animationPositionY).asDouble(),
                      value(animationPositionZ).asDouble()};
    frame.rotation = {value(animationRotationX).asDouble(), value(animationRotationY).asDouble(),
                      value(animationRotationZ).asDouble()};
    frame.scale = {value(animationScaleX).asDouble(), value(animationScaleY).asDouble(),
                   value(animationScaleZ).asDouble()};
    return status ? status : reportApiError(status, kUnit);
}

ZStatus TypeAnimationDeformer::sampleChannels(ZDataBlock& block, AnimationFrame& frame) {
    ZStatus status;
    const ZTime now = block.inputValue(time, &status).asTime();
    if (!status)
        return reportApiError(status, kUnit);
    DelaySettings delays;
    delays.time = now.value();
    delays.offsetFrames = block.outputValue(offsetFrames, &status).asFloat();
    if (status)
        delays.randomDelay = block.inputValue(randomDelay, &status).asBool();
    if (status)
        delays.reverseOrder = block.inputValue(reverseOrder, &status).asBool();
    if (status)
        delays.seed = block.inputValue(randomSeed, &status).asInt();
    if (!status)
        return reportApiError(status, kUnit);

    const ZObject self = thisZObject();
    const ZPlug channels[kChannelCount] = {
        ZPlug(self, animationPositionX), ZPlug(self, animationPositionY), ZPlug(self, animationPositionZ),
        ZPlug(self, animationRotationX), ZPlug(self, animationRotationY), ZPlug(self, animationRotationZ),
        ZPlug(self, animationScaleX),    ZPlug(self, animationScaleY),    ZPlug(self, animationScaleZ)};
    const std::vector<double> times = groupTimes(groupCount(frame), delays);
    for (int channel = 0; channel < kChannelCount; ++channel) {
        const ChannelSampler sampler(channels[channel]);
        std::vector<double>& samples = frame.sampled[static_cast<std::size_t>(channel)];
        samples.resize(times.size());
        for (std::size_t group = 0; group < times.size(); ++group) {
            const ZTime at(times[group], now.unit());
            if (!sampler.needsContext()) {
                status = sampler.valueAt(at, samples[group]);
            } else {
                // Read on this thread, before the element tasks: contexts are per thread.
                const ZDGContextGuard guard{ZDGContext(at)};
                samples[group] = channels[channel].asDouble(&status);
            }
            if (!status)
                return reportApiError(status, kUnit);
        }
    }
    return ZStatus::kSuccess;
}

ZStatus TypeAnimationDeformer::deform(ZDataBlock& block, ZItGeometry& iterator, const ZMatrix& localToWorld,
                                      unsigned int multiIndex) {
    const std::clock_t started = std::clock();
    ZStatus status;
    const bool enabled = block.inputValue(enableAnimation, &status).asBool();
    if (!status)
        return reportApiError(status, kUnit);
    if (!enabled)
        return ZStatus::kSuccess;

    AnimationFrame frame;
    if (!(status = readOffsets(block, frame)))
        return status;
    for (auto [attribute, target] :
         {std::pair{&solidsPerCharacter, &frame.solidsPerCharacter},
          std::pair{&solidsPerWord, &frame.solidsPerWord}, std::pair{&solidsPerLine, &frame.solidsPerLine}})
        if (!(status = readDoubles(block, *attribute, *target)))
            return reportApiError(status, kUnit);

    status = m_elements->update(block, thisZObject(), multiIndex, iterator, vertexGroupIds);
    if (!status)
        return reportApiError(status, kUnit);
    const Elements& elements = m_elements->elements();
    // Without per-character counts every element is a character of its own.
    if (frame.solidsPerCharacter.empty())
        frame.solidsPerCharacter.assign(elements.vertices.size(), 1.0);

    bool pivotDisplay = false;
    if (!(status = readSettings(block, frame, pivotDisplay)))
        return status;
    if (!(status = sampleChannels(block, frame)))
        return status;

    // The motions first: a frame at which nothing moves touches no point.
    const std::vector<ElementMotion> motions = elementMotions(frame, elements);
    ZVectorArray rotationPivots;
    ZVectorArray scalePivots;
    if (pivotDisplay)
        for (const ElementMotion& motion : motions) {
            const ZPoint r =
                ZPoint(motion.rotationPivot.x, motion.rotationPivot.y, motion.rotationPivot.z) * localToWorld;
            const ZPoint s =
                ZPoint(motion.scalePivot.x, motion.scalePivot.y, motion.scalePivot.z) * localToWorld;
            rotationPivots.append(ZVector(r.x, r.y, r.z));
            scalePivots.append(ZVector(s.x, s.y, s.z));
        }
    const std::clock_t moving = std::clock();
    std::clock_t movedAt = moving;
    if (std::any_of(motions.begin(), motions.end(),
                    [](const ElementMotion& motion) { return motion.moves(); })) {
        // The kept array still holds what the last moving frame wrote: elements that
        // move as they did then are left as they are.
        if (m_appliedFor != m_elements->generation() || m_applied.size() != motions.size()) {
            m_applied.assign(motions.size(), ElementMotion{});
            m_appliedFor = m_elements->generation();
        }
        const std::span<const ZPoint> input = m_elements->inputPoints();
        ZPointArray& points = m_elements->movedPoints();
        const std::span<ZPoint> moved(points.data(), points.length());
        tbb::parallel_for(
            tbb::blocked_range<std::size_t>(0, motions.size(), 1),
            [&](const tbb::blocked_range<std::size_t>& range) {
                for (std::size_t i = range.begin(); i != range.end(); ++i)
                    if (!motions[i].sameAs(m_applied[i]))
                        moveElement(motions[i], elements.vertices[i], input, moved);
            },
            tbb::auto_partitioner());
        m_applied = motions;
        movedAt = std::clock();
        if (!(status = iterator.setAllPositions(points)))
            return reportApiError(status, kUnit);
    }
    if (m_timing)
        reportTiming(std::cout, moving - started, movedAt - moving);

    for (auto [attribute, values] :
         {std::pair{&rotationPivotPointsPP, &rotationPivots}, std::pair{&scalePivotPointsPP, &scalePivots}}) {
        const ZObject data = ZFnVectorArrayData().create(*values, &status);
        if (status)
            status = block.outputValue(*attribute, &status).set(data);
        if (!status)
            return reportApiError(status, kUnit);
        block.setClean(*attribute);
    }
    block.setClean(triggeredByHOVA);
    return ZStatus::kSuccess;
}

} // namespace type
