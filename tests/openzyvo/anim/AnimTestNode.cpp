#include "AnimTestNode.h"

#include "graph/NodeTypeRegistry.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnCompoundAttribute.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnUnitAttribute.h>
#include <OpenZyvo/ZPlug.h>
#include <gtest/gtest.h>

ZObject AnimTestNode::value;
ZObject AnimTestNode::offset;
ZObject AnimTestNode::spin;
ZObject AnimTestNode::delay;
ZObject AnimTestNode::position;
ZObject AnimTestNode::locked;
ZObject AnimTestNode::doubled;
int AnimTestNode::normalComputes = 0;
int AnimTestNode::contextComputes = 0;

namespace {

ZObject keyable(ZObject attribute) {
    ZFnAttribute(attribute).setKeyable(true);
    return attribute;
}

ZStatus initialize() {
    ZFnNumericAttribute numeric;
    ZFnUnitAttribute unit;
    AnimTestNode::value = keyable(numeric.create("value", "v", ZFnNumericData::kDouble, 0.0));
    AnimTestNode::locked = numeric.create("locked", "lk", ZFnNumericData::kDouble, 0.0);
    AnimTestNode::offset = keyable(unit.create("offset", "of", ZFnUnitAttribute::kDistance, 0.0));
    AnimTestNode::spin = keyable(unit.create("spin", "sp", ZFnUnitAttribute::kAngle, 0.0));
    AnimTestNode::delay = keyable(unit.create("delay", "dl", ZFnUnitAttribute::kTime, 0.0));
    ZFnCompoundAttribute compound;
    AnimTestNode::position = keyable(compound.create("position", "p"));
    for (const char* axis : {"X", "Y", "Z"})
        compound.addChild(keyable(
            unit.create(ZString("position") + axis, ZString("p") + axis, ZFnUnitAttribute::kDistance, 0.0)));
    AnimTestNode::doubled = numeric.create("doubled", "d", ZFnNumericData::kDouble, 0.0);
    numeric.setWritable(false);
    numeric.setStorable(false);
    for (const ZObject* a :
         {&AnimTestNode::value, &AnimTestNode::locked, &AnimTestNode::offset, &AnimTestNode::spin,
          &AnimTestNode::delay, &AnimTestNode::position, &AnimTestNode::doubled})
        if (ZStatus status = ZPxNode::addAttribute(*a); !status)
            return status;
    return ZPxNode::attributeAffects(AnimTestNode::value, AnimTestNode::doubled);
}

} // namespace

void AnimTestNode::registerType() {
    if (oz::NodeTypeRegistry::instance().find(kTypeName))
        return;
    oz::NodeTypeInfo info;
    info.name = kTypeName;
    info.id = 0x7e570001u;
    info.creator = [] {
        return static_cast<ZPxNode*>(new AnimTestNode);
    };
    info.initializer = initialize;
    ZString error;
    ASSERT_EQ(oz::NodeTypeRegistry::instance().registerType(std::move(info), &error), ZStatus::kSuccess)
        << error.asChar();
}

ZStatus AnimTestNode::compute(const ZPlug& plug, ZDataBlock& block) {
    if (!(plug == doubled))
        return ZStatus::kUnknownParameter;
    ++(block.context().isNormal() ? normalComputes : contextComputes);
    ZDataHandle out = block.outputValue(doubled);
    out.set(2.0 * block.inputValue(value).asDouble());
    out.setClean();
    return ZStatus::kSuccess;
}
