#include "interaction/DisplayPoints.h"

#include "plugin/AttributeSchema.h"

#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZPlug.h>

namespace type {

ZObject displayPoints::inputPoints;

void* displayPoints::creator() {
    return new displayPoints;
}

ZStatus displayPoints::initialize() {
    AttributeSchema schema("displayPoints");
    inputPoints = schema.typed("inputPoints", ZFnData::kVectorArray);
    schema.add(inputPoints);
    return schema.status();
}

ZVectorArray displayPoints::points(const ZObject& node) {
    ZVectorArray values;
    ZFnVectorArrayData(ZPlug(node, inputPoints).asZObject()).copyTo(values);
    return values;
}

bool displayPoints::isBounded() const {
    return true;
}

ZBoundingBox displayPoints::boundingBox() const {
    return boundsOf(points(thisZObject()));
}

ZBoundingBox boundsOf(const ZVectorArray& points) {
    ZBoundingBox box;
    for (const ZVector& point : points)
        box.expand(ZPoint(point.x, point.y, point.z));
    return box;
}

} // namespace type
