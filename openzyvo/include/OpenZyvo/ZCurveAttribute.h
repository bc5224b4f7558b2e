#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZPlug.h>

class ZDoubleArray;
class ZIntArray;

// A profile curve on a node: a list of (position, value) points held as an
// array compound (children "<name>_Position" and "<name>_FloatValue"), so it
// saves, loads and connects like any attribute. It evaluates as the
// piecewise-linear curve through its points sorted by position, held constant
// beyond the first and last point. Reads evaluate the plugs in the current
// context.
class OZ_API ZCurveAttribute {
public:
    ZCurveAttribute() = default;
    explicit ZCurveAttribute(const ZPlug& plug, ZStatus* status = nullptr);
    ZCurveAttribute(const ZObject& node, const ZObject& attribute, ZStatus* status = nullptr);

    static ZObject createCurveAttr(const ZString& longName, const ZString& shortName,
                                   ZStatus* status = nullptr);

    bool isCurveAttribute() const;
    unsigned int numEntries(ZStatus* status = nullptr) const;
    // Logical indices, positions and values of the points, in index order.
    ZStatus getEntries(ZIntArray& indices, ZDoubleArray& positions, ZDoubleArray& values) const;

    // Replaces every point.
    ZStatus setCurve(const ZDoubleArray& positions, const ZDoubleArray& values);
    ZStatus addEntries(const ZDoubleArray& positions, const ZDoubleArray& values);
    ZStatus deleteEntries(const ZIntArray& indices);
    ZStatus setPositionAtIndex(double position, unsigned int index);
    ZStatus setValueAtIndex(double value, unsigned int index);

    // A curve without points evaluates to 0.
    ZStatus getValueAtPosition(double position, double& value) const;
    ZStatus getValuesAtPositions(const ZDoubleArray& positions, ZDoubleArray& values) const;

private:
    ZPlug m_plug;
};
