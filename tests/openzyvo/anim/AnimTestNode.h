#pragma once

#include <OpenZyvo/ZPxNode.h>

// A node made for these tests: keyable inputs of each kind a curve can drive
// and an output computed from `value`, counting its computes per context.
class AnimTestNode : public ZPxNode {
public:
    static constexpr const char* kTypeName = "animTestNode";
    static ZObject value;    // double, keyable
    static ZObject offset;   // distance, keyable
    static ZObject spin;     // angle, keyable
    static ZObject delay;    // time, keyable
    static ZObject position; // compound of three keyable distances
    static ZObject locked;   // double, not keyable
    static ZObject doubled;  // output: 2 * value

    static int normalComputes;
    static int contextComputes;

    // Registers the type once.
    static void registerType();

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
};
