#pragma once

#include "plugin/AttributeSchema.h"

namespace type {

// The animation channels the type node and the svgToPoly node both carry: a
// position, a rotation and a scale (from 1), each a keyable compound of X, Y
// and Z. `Node` holds the twelve attributes under these names.
template <class Node> void addAnimationChannels(AttributeSchema& schema) {
    using N = ZFnNumericData;
    const AttributeSchema::Flags channel{.writable = true, .storable = true, .keyable = true};
    Node::animationPositionX = schema.unit("animationPositionX", ZFnUnitAttribute::kDistance, 0.0, channel);
    Node::animationPositionY = schema.unit("animationPositionY", ZFnUnitAttribute::kDistance, 0.0, channel);
    Node::animationPositionZ = schema.unit("animationPositionZ", ZFnUnitAttribute::kDistance, 0.0, channel);
    Node::animationPosition = schema.compound(
        "animationPosition", {Node::animationPositionX, Node::animationPositionY, Node::animationPositionZ},
        channel);
    schema.add(Node::animationPosition);
    Node::animationRotationX = schema.unit("animationRotationX", ZFnUnitAttribute::kAngle, 0.0, channel);
    Node::animationRotationY = schema.unit("animationRotationY", ZFnUnitAttribute::kAngle, 0.0, channel);
    Node::animationRotationZ = schema.unit("animationRotationZ", ZFnUnitAttribute::kAngle, 0.0, channel);
    Node::animationRotation = schema.compound(
        "animationRotation", {Node::animationRotationX, Node::animationRotationY, Node::animationRotationZ},
        channel);
    schema.add(Node::animationRotation);
    Node::animationScaleX = schema.numeric("animationScaleX", N::kDouble, 1.0, channel);
    Node::animationScaleY = schema.numeric("animationScaleY", N::kDouble, 1.0, channel);
    Node::animationScaleZ = schema.numeric("animationScaleZ", N::kDouble, 1.0, channel);
    Node::animationScale = schema.compound(
        "animationScale", {Node::animationScaleX, Node::animationScaleY, Node::animationScaleZ}, channel);
    schema.add(Node::animationScale);
}

} // namespace type
