#pragma once

#include "plugin/AttributeSchema.h"

#include <string>
#include <utility>

namespace type {

// The animation channels the type node and the svgToPoly node both carry: a
// position, a rotation and a scale (from 1), each a keyable compound of X, Y
// and Z. `Node` holds the twelve attributes under these names.
template <class Node> void addAnimationChannels(AttributeSchema& schema) {
    const AttributeSchema::Flags channel{.writable = true, .storable = true, .keyable = true};
    // One channel: its X, Y and Z made by `child`, then the compound that holds them.
    const auto addChannel = [&](const std::string& name, ZObject& compound, ZObject& x, ZObject& y,
                                ZObject& z, const auto& child) {
        for (const auto& [axis, attribute] : {std::pair{"X", &x}, std::pair{"Y", &y}, std::pair{"Z", &z}})
            *attribute = child((name + axis).c_str());
        compound = schema.compound(name.c_str(), {x, y, z}, channel);
        schema.add(compound);
    };
    addChannel("animationPosition", Node::animationPosition, Node::animationPositionX,
               Node::animationPositionY, Node::animationPositionZ, [&](const char* name) {
                   return schema.unit(name, ZFnUnitAttribute::kDistance, 0.0, channel);
               });
    addChannel("animationRotation", Node::animationRotation, Node::animationRotationX,
               Node::animationRotationY, Node::animationRotationZ,
               [&](const char* name) { return schema.unit(name, ZFnUnitAttribute::kAngle, 0.0, channel); });
    addChannel("animationScale", Node::animationScale, Node::animationScaleX, Node::animationScaleY,
               Node::animationScaleZ,
               [&](const char* name) { return schema.numeric(name, ZFnNumericData::kDouble, 1.0, channel); });
}

} // namespace type
