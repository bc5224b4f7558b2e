#include "graph/Graph.h"
#include "graph/NodeTypeRegistry.h"

#include <OpenZyvo/ZDGContextGuard.h>
#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnUnitAttribute.h>
#include <OpenZyvo/ZPlug.h>
#include <benchmark/benchmark.h>
#include <vector>

namespace {

// output = input + 1.
class Step : public ZPxNode {
public:
    static ZObject input, output;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override {
        if (plug != output)
            return ZStatus::kUnknownParameter;
        block.outputValue(output).set(block.inputValue(input).asDouble() + 1.0);
        return block.setClean(plug);
    }
};
ZObject Step::input, Step::output;

// outTime follows the context's time.
class Clock : public ZPxNode {
public:
    static ZObject outTime;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override {
        if (plug != outTime)
            return ZStatus::kUnknownParameter;
        block.outputValue(outTime).set(block.context().getTime());
        return block.setClean(plug);
    }
};
ZObject Clock::outTime;

// value = 3 * time + 1, a stand-in for a curve keyed on time.
class Curve : public ZPxNode {
public:
    static ZObject time, value;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override {
        if (plug != value)
            return ZStatus::kUnknownParameter;
        block.outputValue(value).set(3.0 * block.inputValue(time).asDouble() + 1.0);
        return block.setClean(plug);
    }
};
ZObject Curve::time, Curve::value;

void registerNodes() {
    static bool done = false;
    if (done)
        return;
    done = true;
    auto& registry = oz::NodeTypeRegistry::instance();
    oz::NodeTypeInfo step;
    step.name = "benchStep";
    step.id = ZTypeId(0x7e200);
    step.creator = [] {
        return new Step;
    };
    step.initializer = [] {
        ZFnNumericAttribute fn;
        Step::input = fn.create("input", "in", ZFnNumericData::kDouble);
        Step::output = fn.create("output", "out", ZFnNumericData::kDouble);
        fn.setWritable(false);
        ZPxNode::addAttribute(Step::input);
        ZPxNode::addAttribute(Step::output);
        return ZPxNode::attributeAffects(Step::input, Step::output);
    };
    registry.registerType(step);

    oz::NodeTypeInfo clock;
    clock.name = "benchClock";
    clock.id = ZTypeId(0x7e201);
    clock.creator = [] {
        return new Clock;
    };
    clock.initializer = [] {
        ZFnUnitAttribute fn;
        Clock::outTime = fn.create("outTime", "ot", ZFnUnitAttribute::kTime);
        ZPxNode::addAttribute(Clock::outTime);
        return oz::NodeTypeRegistry::declareTimeDriven(Clock::outTime);
    };
    registry.registerType(clock);

    oz::NodeTypeInfo curve;
    curve.name = "benchCurve";
    curve.id = ZTypeId(0x7e202);
    curve.creator = [] {
        return new Curve;
    };
    curve.initializer = [] {
        ZFnUnitAttribute unit;
        Curve::time = unit.create("time", "ti", ZFnUnitAttribute::kTime);
        ZFnNumericAttribute fn;
        Curve::value = fn.create("value", "v", ZFnNumericData::kDouble);
        ZPxNode::addAttribute(Curve::time);
        ZPxNode::addAttribute(Curve::value);
        return ZPxNode::attributeAffects(Curve::time, Curve::value);
    };
    registry.registerType(curve);
}

ZObject make(const char* type) {
    ZFnDependencyNode fn;
    return fn.create(ZString(type));
}

// Setting the head of a chain of nodes and reading its tail: one dirty
// propagation down the chain, then one compute per node. Reported per node.
void ChainSetAndPull(benchmark::State& state) {
    registerNodes();
    oz::Graph::instance().clear();
    const int length = static_cast<int>(state.range(0));
    std::vector<ZObject> nodes;
    ZDGModifier modifier;
    for (int i = 0; i < length; ++i) {
        nodes.push_back(make("benchStep"));
        if (i > 0)
            modifier.connect(ZPlug(nodes[i - 1], Step::output), ZPlug(nodes[i], Step::input));
    }
    modifier.doIt();
    ZPlug head(nodes.front(), Step::input), tail(nodes.back(), Step::output);
    double value = 0.0;
    for (auto _ : state) {
        head.setValue(value);
        benchmark::DoNotOptimize(tail.asDouble());
        value += 1.0;
    }
    if (tail.asDouble() != value - 1.0 + length)
        state.SkipWithError("the tail has a wrong value");
    state.counters["per_node"] =
        benchmark::Counter(static_cast<double>(length),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    oz::Graph::instance().clear();
}
BENCHMARK(ChainSetAndPull)->Arg(1000)->Arg(20000)->Unit(benchmark::kMicrosecond);

// Reading a time-driven plug at many context times (a curve fed by the
// scene clock); the normal context keeps its value throughout.
void SampleAtContextTimes(benchmark::State& state) {
    registerNodes();
    oz::Graph::instance().clear();
    ZObject clock = make("benchClock"), curve = make("benchCurve");
    ZDGModifier modifier;
    modifier.connect(ZPlug(clock, Clock::outTime), ZPlug(curve, Curve::time));
    modifier.doIt();
    ZPlug value(curve, Curve::value);
    const int samples = static_cast<int>(state.range(0));
    double start = 0.0;
    for (auto _ : state) {
        double sum = 0.0;
        for (int i = 0; i < samples; ++i) {
            ZDGContextGuard guard{ZDGContext(ZTime(start + 0.25 * i))};
            sum += value.asDouble();
        }
        benchmark::DoNotOptimize(sum);
        start += 1.0;
    }
    state.counters["per_sample"] =
        benchmark::Counter(static_cast<double>(samples),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    oz::Graph::instance().clear();
}
BENCHMARK(SampleAtContextTimes)->Arg(1000)->Unit(benchmark::kMicrosecond);

} // namespace
