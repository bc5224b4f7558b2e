#include "TestNodes.h"

#include "graph/Graph.h"
#include "graph/NodeTypeRegistry.h"

#include <OpenZyvo/ZCurveAttribute.h>
#include <OpenZyvo/ZFnCompoundAttribute.h>
#include <OpenZyvo/ZFnEnumAttribute.h>
#include <OpenZyvo/ZFnMessageAttribute.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnStringData.h>
#include <OpenZyvo/ZFnTypedAttribute.h>
#include <OpenZyvo/ZFnUnitAttribute.h>

namespace graphtest {

ZObject Adder::input, Adder::offset, Adder::output;
ZObject Failing::input, Failing::output;
ZObject Sloppy::input, Sloppy::output;
ZObject Passive::input, Passive::output;
ZObject Summer::position, Summer::values, Summer::groups, Summer::weight, Summer::members, Summer::id,
    Summer::sum;
ZObject Watcher::a, Watcher::b, Watcher::out, Watcher::extra;
ZObject Clock::outTime;
ZObject Sampler::time, Sampler::offset, Sampler::value;
ZObject Settings::mode, Settings::level, Settings::label, Settings::profile, Settings::distance,
    Settings::angle, Settings::link;

namespace {

ZObject number(const char* name, const char* shortName, double value = 0.0) {
    ZFnNumericAttribute fn;
    return fn.create(name, shortName, ZFnNumericData::kDouble, value);
}

ZObject output(const char* name, const char* shortName) {
    ZFnNumericAttribute fn;
    ZObject a = fn.create(name, shortName, ZFnNumericData::kDouble);
    fn.setWritable(false);
    fn.setStorable(false);
    return a;
}

template <typename T> std::function<ZPxNode*()> creator() {
    return [] {
        return new T;
    };
}

void add(const char* name, unsigned int id, std::function<ZPxNode*()> make, std::function<ZStatus()> init) {
    oz::NodeTypeInfo info;
    info.name = name;
    info.id = ZTypeId(0x7e000u + id);
    info.creator = std::move(make);
    info.initializer = std::move(init);
    ZString error;
    ASSERT_TRUE(oz::NodeTypeRegistry::instance().registerType(std::move(info), &error)) << error;
}

} // namespace

ZStatus Adder::compute(const ZPlug& plug, ZDataBlock& block) {
    if (plug != output)
        return ZStatus::kUnknownParameter;
    ++computes;
    ZStatus status;
    const double in = block.inputValue(input, &status).asDouble();
    if (!status)
        return status;
    block.outputValue(output).set(in + block.inputValue(offset).asDouble());
    return block.setClean(plug);
}

ZStatus Failing::compute(const ZPlug& plug, ZDataBlock& block) {
    if (plug != output)
        return ZStatus::kUnknownParameter;
    block.outputValue(output).set(-999.0);
    return ZStatus::kFailure;
}

ZStatus Sloppy::compute(const ZPlug& plug, ZDataBlock& block) {
    if (plug != output)
        return ZStatus::kUnknownParameter;
    ++computes;
    block.outputValue(output).set(2.0 * block.inputValue(input).asDouble());
    return ZStatus::kSuccess;
}

ZStatus Passive::compute(const ZPlug& plug, ZDataBlock&) {
    if (plug == output)
        ++computes;
    return ZStatus::kUnknownParameter;
}

ZStatus Summer::compute(const ZPlug& plug, ZDataBlock& block) {
    if (plug != sum)
        return ZStatus::kUnknownParameter;
    ++computes;
    const auto p = block.inputValue(position).asDouble3();
    double total = p[0] + p[1] + p[2];
    ZArrayDataHandle v = block.inputArrayValue(values);
    for (unsigned int i = 0; i < v.elementCount(); ++i, v.next())
        total += v.inputValue().asDouble();
    ZArrayDataHandle g = block.inputArrayValue(groups);
    for (unsigned int i = 0; i < g.elementCount(); ++i, g.next())
        total += g.inputValue().child(weight).asDouble();
    block.outputValue(sum).set(total);
    return block.setClean(plug);
}

ZStatus Watcher::compute(const ZPlug& plug, ZDataBlock& block) {
    ++computes;
    if (plug == out)
        block.outputValue(out).set(block.inputValue(a).asDouble());
    else if (plug == extra)
        block.outputValue(extra).set(10.0 * block.inputValue(b).asDouble());
    else
        return ZStatus::kUnknownParameter;
    return block.setClean(plug);
}

ZStatus Watcher::setDependentsDirty(const ZPlug& plug, ZPlugArray& affected) {
    if (plug == b)
        affected.append(ZPlug(thisZObject(), extra));
    return ZStatus::kSuccess;
}

ZStatus Watcher::preEvaluation(const ZDGContext&, const ZEvaluationNode& node) {
    ++preEvaluations;
    sawA = node.dirtyPlugExists(a);
    sawB = node.dirtyPlugExists(b);
    return ZStatus::kSuccess;
}

ZStatus Clock::compute(const ZPlug& plug, ZDataBlock& block) {
    if (plug != outTime)
        return ZStatus::kUnknownParameter;
    ++computes;
    block.outputValue(outTime).set(block.context().getTime());
    return block.setClean(plug);
}

ZStatus Sampler::compute(const ZPlug& plug, ZDataBlock& block) {
    if (plug != value)
        return ZStatus::kUnknownParameter;
    ++computes;
    const double t = block.inputValue(time).asTime().as(ZTime::uiUnit());
    block.outputValue(value).set(2.0 * t + block.inputValue(offset).asDouble());
    return block.setClean(plug);
}

void registerTestNodes() {
    static bool done = false;
    if (done)
        return;
    done = true;

    add("graphTestAdder", 1, creator<Adder>(), [] {
        Adder::input = number("input", "in");
        Adder::offset = number("offset", "off");
        Adder::output = output("output", "out");
        for (const ZObject* a : {&Adder::input, &Adder::offset, &Adder::output})
            ZPxNode::addAttribute(*a);
        ZPxNode::attributeAffects(Adder::input, Adder::output);
        return ZPxNode::attributeAffects(Adder::offset, Adder::output);
    });
    add("graphTestFailing", 2, creator<Failing>(), [] {
        Failing::input = number("input", "in");
        Failing::output = output("output", "out");
        ZPxNode::addAttribute(Failing::input);
        ZPxNode::addAttribute(Failing::output);
        return ZPxNode::attributeAffects(Failing::input, Failing::output);
    });
    add("graphTestSloppy", 3, creator<Sloppy>(), [] {
        Sloppy::input = number("input", "in");
        Sloppy::output = output("output", "out");
        ZPxNode::addAttribute(Sloppy::input);
        ZPxNode::addAttribute(Sloppy::output);
        return ZPxNode::attributeAffects(Sloppy::input, Sloppy::output);
    });
    add("graphTestPassive", 4, creator<Passive>(), [] {
        Passive::input = number("input", "in");
        Passive::output = number("output", "out", 5.0);
        ZPxNode::addAttribute(Passive::input);
        ZPxNode::addAttribute(Passive::output);
        return ZPxNode::attributeAffects(Passive::input, Passive::output);
    });
    add("graphTestSummer", 5, creator<Summer>(), [] {
        ZFnNumericAttribute numeric;
        ZFnCompoundAttribute compound;
        Summer::position = numeric.createPoint("position", "pos");
        Summer::values = number("values", "v");
        numeric.setObject(Summer::values);
        numeric.setArray(true);
        Summer::weight = number("weight", "w");
        Summer::id = number("id", "id");
        Summer::members = compound.create("members", "mem");
        compound.addChild(Summer::id);
        compound.setArray(true);
        Summer::groups = compound.create("groups", "grp");
        compound.addChild(Summer::weight);
        compound.addChild(Summer::members);
        compound.setArray(true);
        Summer::sum = output("sum", "s");
        for (const ZObject* a : {&Summer::position, &Summer::values, &Summer::groups, &Summer::sum})
            ZPxNode::addAttribute(*a);
        ZPxNode::attributeAffects(Summer::position, Summer::sum);
        ZPxNode::attributeAffects(Summer::values, Summer::sum);
        return ZPxNode::attributeAffects(Summer::groups, Summer::sum);
    });
    add("graphTestWatcher", 6, creator<Watcher>(), [] {
        Watcher::a = number("a", "a");
        Watcher::b = number("b", "b");
        Watcher::out = output("out", "o");
        Watcher::extra = output("extra", "x");
        for (const ZObject* attr : {&Watcher::a, &Watcher::b, &Watcher::out, &Watcher::extra})
            ZPxNode::addAttribute(*attr);
        return ZPxNode::attributeAffects(Watcher::a, Watcher::out);
    });
    add("graphTestClock", 7, creator<Clock>(), [] {
        ZFnUnitAttribute unit;
        Clock::outTime = unit.create("outTime", "ot", ZFnUnitAttribute::kTime);
        unit.setWritable(false);
        ZPxNode::addAttribute(Clock::outTime);
        return oz::NodeTypeRegistry::declareTimeDriven(Clock::outTime);
    });
    add("graphTestSampler", 8, creator<Sampler>(), [] {
        ZFnUnitAttribute unit;
        Sampler::time = unit.create("time", "ti", ZFnUnitAttribute::kTime, 1.0);
        Sampler::offset = number("offset", "off");
        Sampler::value = output("value", "val");
        for (const ZObject* a : {&Sampler::time, &Sampler::offset, &Sampler::value})
            ZPxNode::addAttribute(*a);
        ZPxNode::attributeAffects(Sampler::time, Sampler::value);
        return ZPxNode::attributeAffects(Sampler::offset, Sampler::value);
    });
    add("graphTestSettings", 9, creator<Settings>(), [] {
        ZFnEnumAttribute enumFn;
        Settings::mode = enumFn.create("mode", "md", 1);
        enumFn.addField("Outer", 1);
        enumFn.addField("Inner", 3);
        ZFnNumericAttribute numeric;
        Settings::level = numeric.create("level", "lv", ZFnNumericData::kInt, 4);
        numeric.setMin(0);
        numeric.setMax(10);
        numeric.setSoftMax(5);
        ZFnStringData text;
        ZFnTypedAttribute typed;
        Settings::label = typed.create("label", "lb", ZFnData::kString, text.create("hello"));
        Settings::profile = ZCurveAttribute::createCurveAttr("profile", "pf");
        ZFnUnitAttribute unit;
        Settings::distance = unit.create("distance", "dst", ZDistance(2.0, ZDistance::kMeters));
        Settings::angle = unit.create("angle", "ang", ZAngle(90.0, ZAngle::kDegrees));
        ZFnMessageAttribute message;
        Settings::link = message.create("link", "lk");
        for (const ZObject* a : {&Settings::mode, &Settings::level, &Settings::label, &Settings::profile,
                                 &Settings::distance, &Settings::angle, &Settings::link})
            if (ZStatus status = ZPxNode::addAttribute(*a); !status)
                return status;
        return ZStatus(ZStatus::kSuccess);
    });
}

void GraphTest::SetUp() {
    registerTestNodes();
    oz::Graph::instance().clear();
}

void GraphTest::TearDown() {
    oz::Graph::instance().clear();
}

ZObject create(const char* type, const char* name) {
    ZFnDependencyNode fn;
    ZStatus status;
    ZObject node = fn.create(ZString(type), ZString(name), &status);
    EXPECT_TRUE(status) << "creating a " << type;
    return node;
}

ZPlug plug(const ZObject& node, const char* name) {
    ZStatus status;
    ZPlug found = ZFnDependencyNode(node).findPlug(name, true, &status);
    EXPECT_TRUE(status) << "finding " << name;
    return found;
}

} // namespace graphtest
