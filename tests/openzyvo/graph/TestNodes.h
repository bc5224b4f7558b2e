#pragma once

#include <OpenZyvo/ZDGContext.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZEvaluationNode.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPlugArray.h>
#include <OpenZyvo/ZPxNode.h>
#include <gtest/gtest.h>

// Tiny nodes that pin the graph's behaviour, registered once per process.
namespace graphtest {

// output = input + offset; counts its computes and caches (sets clean).
class Adder : public ZPxNode {
public:
    static ZObject input, offset, output;
    int computes = 0;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
};

// Writes a bogus output, then fails.
class Failing : public ZPxNode {
public:
    static ZObject input, output;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
};

// output = 2 * input, but never marks it clean.
class Sloppy : public ZPxNode {
public:
    static ZObject input, output;
    int computes = 0;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
};

// Leaves its output to the graph's default handling.
class Passive : public ZPxNode {
public:
    static ZObject input, output;
    int computes = 0;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
};

// sum = position.x + .y + .z + every values[i] + every groups[i].weight.
// groups[i].members[j].id is a nested array for plug naming.
class Summer : public ZPxNode {
public:
    static ZObject position, values, groups, weight, members, id, sum;
    int computes = 0;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
};

// out = a (declared); extra = 10 * b, dirtied only through setDependentsDirty.
// Records what preEvaluation saw.
class Watcher : public ZPxNode {
public:
    static ZObject a, b, out, extra;
    int computes = 0;
    int preEvaluations = 0;
    bool sawA = false, sawB = false;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
    ZStatus setDependentsDirty(const ZPlug& plug, ZPlugArray& affected) override;
    ZStatus preEvaluation(const ZDGContext& context, const ZEvaluationNode& node) override;
};

// outTime follows the evaluation context's time (time-driven).
class Clock : public ZPxNode {
public:
    static ZObject outTime;
    int computes = 0;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
};

// value = 2 * time (in UI units) + offset.
class Sampler : public ZPxNode {
public:
    static ZObject time, offset, value;
    int computes = 0;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
};

// Attribute kinds: enum with gaps, clamped int, string with a default, curve,
// unit attributes, message.
class Settings : public ZPxNode {
public:
    static ZObject mode, level, label, profile, distance, angle, link;
};

void registerTestNodes();

// Every test starts and ends with an empty scene.
class GraphTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};

ZObject create(const char* type, const char* name = "");
ZPlug plug(const ZObject& node, const char* name);
template <typename T> T* user(const ZObject& node) {
    return dynamic_cast<T*>(ZFnDependencyNode(node).userNode());
}

} // namespace graphtest
