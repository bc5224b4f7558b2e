#include "graph/Graph.h"
#include "graph/NodeTypeRegistry.h"

#include <OpenZyvo/ZDGContextGuard.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvoAnim/ZFnAnimCurve.h>
#include <benchmark/benchmark.h>

namespace {

// A node with one keyable number, as a deformer's animation channel.
class ChannelNode : public ZPxNode {
public:
    static ZObject channel;
    static ZStatus initialize() {
        ZFnNumericAttribute fn;
        channel = fn.create("channel", "ch", ZFnNumericData::kDouble, 0.0);
        fn.setKeyable(true);
        return addAttribute(channel);
    }
};
ZObject ChannelNode::channel;

ZPlug keyedChannel(int keys) {
    if (!oz::NodeTypeRegistry::instance().find("benchChannelNode")) {
        oz::NodeTypeInfo info;
        info.name = "benchChannelNode";
        info.id = 0x7e570002u;
        info.creator = [] {
            return static_cast<ZPxNode*>(new ChannelNode);
        };
        info.initializer = ChannelNode::initialize;
        oz::NodeTypeRegistry::instance().registerType(std::move(info));
    }
    oz::Graph::instance().clear();
    const ZObject node = ZFnDependencyNode().create("benchChannelNode");
    const ZPlug plug(node, ChannelNode::channel);
    ZFnAnimCurve curve;
    curve.create(plug);
    for (int i = 0; i < keys; ++i)
        curve.addKey(ZTime(i * 10.0, ZTime::kFilm), (i * 7919 % 13) * 0.5, ZFnAnimCurve::kTangentAuto,
                     ZFnAnimCurve::kTangentAuto);
    return plug;
}

// 1,000 time-shifted reads of a keyed channel, as the per-character
// animation deformer samples its channels once per character.
void BM_KeyedPlugInContexts(benchmark::State& state) {
    const ZPlug plug = keyedChannel(static_cast<int>(state.range(0)));
    const double span = state.range(0) * 10.0;
    double offset = 0.0;
    for (auto _ : state) {
        // A new set of times each round, so no context cache is reused.
        offset += 0.37;
        for (int i = 0; i < 1000; ++i) {
            ZDGContextGuard guard(ZDGContext(ZTime(offset + span * i / 1000.0, ZTime::kFilm)));
            benchmark::DoNotOptimize(plug.asDouble());
        }
    }
    state.SetItemsProcessed(state.iterations() * 1000);
    oz::Graph::instance().clear();
}
BENCHMARK(BM_KeyedPlugInContexts)->Arg(4)->Arg(100)->Unit(benchmark::kMicrosecond);

} // namespace
