#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZTime.h>

class ZAngle;
class ZDGModifier;
class ZDoubleArray;
class ZPlug;
class ZTimeArray;

// Function set of animation curve nodes, which map the time at their `input`
// (the evaluation time when it is unconnected) to their `output`.
//
// Key times are times; key values are in the graph's internal unit of the
// curve's output (centimetres, radians, plain numbers), and for time-to-time
// curves in the UI time unit. Keys are kept sorted by time: an index names the
// key's place in time and changes when keys are added, moved or removed.
// Tangent angles are measured in the plane of seconds and value.
class OZ_API ZFnAnimCurve : public ZFnDependencyNode {
public:
    // The enums have a fixed underlying type so that a number from a script or
    // a file that names no field is still a value the calls can refuse.
    enum AnimCurveType : int {
        kAnimCurveTA = 0, // time to angle
        kAnimCurveTL,     // time to distance
        kAnimCurveTT,     // time to time
        kAnimCurveTU,     // time to plain number
        kAnimCurveUnknown
    };

    enum TangentType : int {
        kTangentFixed = 0,
        kTangentLinear,
        kTangentFlat,
        kTangentStep,     // out side only: holds the value to the next key
        kTangentStepNext, // out side only: takes the next key's value at once
        kTangentSmooth,
        kTangentClamped, // smooth, flat beside a neighbour of equal value
        kTangentPlateau, // smooth without overshoot; flat at extremes and ends
        kTangentAuto,    // smooth without overshoot, keeping speed through keys
    };

    enum InfinityType : int { kConstant = 0, kLinear, kCycle, kCycleRelative, kOscillate };

    ZFnAnimCurve() = default;
    explicit ZFnAnimCurve(const ZObject& node, ZStatus* status = nullptr);
    // Attaches to the curve that drives `plug`.
    explicit ZFnAnimCurve(const ZPlug& plug, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kAnimCurve; }

    // Creates a curve of the type `plug` needs and connects its output to
    // `plug`. With a modifier, the creation and connection are added to it
    // and happen when it is done.
    ZObject create(const ZPlug& plug, ZDGModifier* modifier = nullptr, ZStatus* status = nullptr);
    // Creates an unconnected curve.
    ZObject create(AnimCurveType type, ZDGModifier* modifier = nullptr, ZStatus* status = nullptr);
    // The curve type that animates `plug`; kAnimCurveUnknown when none can.
    static AnimCurveType curveTypeFor(const ZPlug& plug, ZStatus* status = nullptr);

    AnimCurveType animCurveType(ZStatus* status = nullptr) const;

    unsigned int numKeys(ZStatus* status = nullptr) const;
    // Adds a key, replacing any key at the same time.
    ZStatus addKey(const ZTime& time, double value, TangentType inType = kTangentAuto,
                   TangentType outType = kTangentAuto, unsigned int* index = nullptr);
    ZStatus addKeys(const ZTimeArray& times, const ZDoubleArray& values, TangentType inType = kTangentAuto,
                    TangentType outType = kTangentAuto);
    // Sets the value of the key at `time`, keeping its tangents, or adds a
    // key with the given tangent types there.
    ZStatus addKeyframe(const ZTime& time, double value, TangentType inType = kTangentAuto,
                        TangentType outType = kTangentAuto, unsigned int* index = nullptr);
    ZStatus remove(unsigned int index);
    ZStatus removeAllKeys();
    bool find(const ZTime& time, unsigned int& index, ZStatus* status = nullptr) const;

    ZTime time(unsigned int index, ZStatus* status = nullptr) const;
    double value(unsigned int index, ZStatus* status = nullptr) const;
    ZStatus setValue(unsigned int index, double value);
    // Moves a key (replacing any key at the new time); `newIndex` receives
    // its new place.
    ZStatus setTime(unsigned int index, const ZTime& time, unsigned int* newIndex = nullptr);

    TangentType inTangentType(unsigned int index, ZStatus* status = nullptr) const;
    TangentType outTangentType(unsigned int index, ZStatus* status = nullptr) const;
    ZStatus setTangentTypes(unsigned int index, TangentType inType, TangentType outType);
    // Angle and weight of one side of a key; setting them makes it fixed.
    ZStatus getTangent(unsigned int index, ZAngle& angle, double& weight, bool inTangent) const;
    ZStatus setTangent(unsigned int index, const ZAngle& angle, double weight, bool inTangent);
    bool isWeighted(ZStatus* status = nullptr) const;
    ZStatus setIsWeighted(bool weighted);

    InfinityType preInfinity(ZStatus* status = nullptr) const;
    InfinityType postInfinity(ZStatus* status = nullptr) const;
    ZStatus setPreInfinity(InfinityType type);
    ZStatus setPostInfinity(InfinityType type);

    // The curve's value at `time`, as above; the time overload is for
    // time-to-time curves. Once the keys have been read after their last
    // change (any call on the main thread does that), several threads may
    // evaluate one curve at once.
    ZStatus evaluate(const ZTime& time, double& value) const;
    ZStatus evaluate(const ZTime& time, ZTime& value) const;
};
