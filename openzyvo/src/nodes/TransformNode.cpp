#include "nodes/TransformNode.h"

#include "graph/Node.h"
#include "nodes/DagHierarchy.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZEulerRotation.h>
#include <OpenZyvo/ZFnEnumAttribute.h>
#include <OpenZyvo/ZFnMatrixData.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnTypedAttribute.h>
#include <OpenZyvo/ZFnUnitAttribute.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZTransformationMatrix.h>
#include <array>

namespace oz::nodes {

ZObject TransformNode::translate, TransformNode::translateX, TransformNode::translateY,
    TransformNode::translateZ;
ZObject TransformNode::rotate, TransformNode::rotateX, TransformNode::rotateY, TransformNode::rotateZ;
ZObject TransformNode::scale, TransformNode::scaleX, TransformNode::scaleY, TransformNode::scaleZ;
ZObject TransformNode::rotateOrder;
ZObject TransformNode::matrix;

namespace {

// A keyable compound `name` of three children name+X/Y/Z made by `makeChild`.
template <class MakeChild>
ZObject keyableTriple(const char* name, const char* shortName, std::array<ZObject*, 3> children,
                      MakeChild&& makeChild, ZStatus& status) {
    static constexpr const char* kAxes[] = {"X", "Y", "Z"};
    static constexpr const char* kShortAxes[] = {"x", "y", "z"};
    for (int axis = 0; axis < 3 && status; ++axis) {
        *children[axis] =
            makeChild(ZString(name) + kAxes[axis], ZString(shortName) + kShortAxes[axis], status);
        if (status)
            ZFnAttribute(*children[axis]).setKeyable(true);
    }
    if (!status)
        return ZObject();
    ZFnNumericAttribute fn;
    ZObject triple = fn.create(name, shortName, *children[0], *children[1], *children[2], &status);
    if (status)
        fn.setKeyable(true);
    return triple;
}

ZObject unitChild(ZFnUnitAttribute::Type unit, const ZString& name, const ZString& shortName,
                  ZStatus& status) {
    return ZFnUnitAttribute().create(name, shortName, unit, 0.0, &status);
}

} // namespace

ZStatus TransformNode::initialize() {
    ZStatus status;
    translate = keyableTriple(
        "translate", "t", {&translateX, &translateY, &translateZ},
        [](const ZString& n, const ZString& s, ZStatus& st) {
            return unitChild(ZFnUnitAttribute::kDistance, n, s, st);
        },
        status);
    rotate = keyableTriple(
        "rotate", "r", {&rotateX, &rotateY, &rotateZ},
        [](const ZString& n, const ZString& s, ZStatus& st) {
            return unitChild(ZFnUnitAttribute::kAngle, n, s, st);
        },
        status);
    scale = keyableTriple(
        "scale", "s", {&scaleX, &scaleY, &scaleZ},
        [](const ZString& n, const ZString& s, ZStatus& st) {
            return ZFnNumericAttribute().create(n, s, ZFnNumericData::kDouble, 1.0, &st);
        },
        status);
    if (!status)
        return status;

    ZFnEnumAttribute enumFn;
    rotateOrder = enumFn.create("rotateOrder", "ro", 0, &status);
    if (!status)
        return status;
    const char* orders[] = {"xyz", "yzx", "zxy", "xzy", "yxz", "zyx"};
    for (short value = 0; value < 6; ++value)
        enumFn.addField(orders[value], value);

    ZFnTypedAttribute typed;
    matrix = typed.create("matrix", "m", ZFnData::kMatrix, ZObject::kNullObj, &status);
    if (!status)
        return status;
    typed.setWritable(false);
    typed.setStorable(false);

    for (const ZObject& attribute : {translate, rotate, scale, rotateOrder, matrix})
        if (!(status = addAttribute(attribute)))
            return status;
    for (const ZObject& input : {translate, rotate, scale, rotateOrder})
        for (const ZObject& output : {matrix, worldMatrix})
            if (!(status = attributeAffects(input, output)))
                return status;
    return ZStatus::kSuccess;
}

ZMatrix TransformNode::localMatrix(ZDataBlock& block, ZStatus& status) {
    auto triple = [&](const ZObject& x, const ZObject& y, const ZObject& z) {
        std::array<double, 3> values{};
        const ZObject* axes[] = {&x, &y, &z};
        for (int i = 0; i < 3 && status; ++i)
            values[i] = block.inputValue(*axes[i], &status).asDouble();
        return values;
    };
    const auto t = triple(translateX, translateY, translateZ);
    const auto r = triple(rotateX, rotateY, rotateZ);
    const auto s = triple(scaleX, scaleY, scaleZ);
    const short order = status ? block.inputValue(rotateOrder, &status).asShort() : 0;
    if (!status)
        return ZMatrix();

    ZTransformationMatrix transformation;
    transformation.setScale(s.data());
    transformation.rotateTo(
        ZEulerRotation(r[0], r[1], r[2], static_cast<ZEulerRotation::RotationOrder>(order)));
    transformation.setTranslation(ZVector(t[0], t[1], t[2]));
    return transformation.asMatrix();
}

ZStatus TransformNode::compute(const ZPlug& plug, ZDataBlock& block) {
    const bool wantsLocal = plug == matrix;
    if (!wantsLocal && !(plug == worldMatrix))
        return ZStatus::kUnknownParameter;
    ZStatus status;
    const ZMatrix local = localMatrix(block, status);
    if (!status)
        return status;
    if (!wantsLocal)
        return setWorldMatrix(block, local * parentWorldMatrix(graphNode()));

    ZDataHandle out = block.outputValue(matrix, &status);
    if (!status)
        return status;
    if (!(status = out.setZObject(ZFnMatrixData().create(local))))
        return status;
    out.setClean();
    return ZStatus::kSuccess;
}

} // namespace oz::nodes
