#include "graph/Graph.h"
#include "graph/NodeTypeRegistry.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <OpenZyvo/ZItGeometry.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPxDeformerNode.h>
#include <benchmark/benchmark.h>
#include <tbb/parallel_for.h>

namespace {

// Lifts every point by the envelope, as a plug-in deformer does: all points out, moved in
// parallel, all points back.
class LiftDeformer : public ZPxDeformerNode {
public:
    ZStatus deform(ZDataBlock& block, ZItGeometry& iterator, const ZMatrix&, unsigned int) override {
        const double lift = block.inputValue(envelope).asFloat();
        ZPointArray points;
        iterator.allPositions(points);
        tbb::parallel_for(tbb::blocked_range<unsigned int>(0, points.length(), 8192), [&](const auto& range) {
            for (unsigned int i = range.begin(); i != range.end(); ++i)
                points[i].y += lift;
        });
        return iterator.setAllPositions(points);
    }
};

// A grid of side x side vertices in quads.
ZObject grid(int side) {
    ZPointArray points;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            points.append(ZPoint(x, y, 0));
    ZIntArray counts, connects;
    for (int y = 0; y + 1 < side; ++y)
        for (int x = 0; x + 1 < side; ++x) {
            counts.append(4);
            for (int v : {y * side + x, y * side + x + 1, (y + 1) * side + x + 1, (y + 1) * side + x})
                connects.append(v);
        }
    ZObject data = ZFnMeshData().create();
    ZFnMesh().create(side * side, static_cast<int>(counts.length()), points, counts, connects, data);
    return data;
}

// One pull of outputGeom[0] after an envelope change: the copy of the input mesh, deform() over
// every point and the output stored, through the graph as a scene evaluates it.
void BM_DeformerNodePass(benchmark::State& state) {
    oz::NodeTypeRegistry& registry = oz::NodeTypeRegistry::instance();
    if (!registry.find("benchLiftDeformer")) {
        oz::NodeTypeInfo info;
        info.name = "benchLiftDeformer";
        info.id = ZTypeId(0x7e5b0001u);
        info.kind = ZPxNode::kDeformerNode;
        info.creator = [] {
            return new LiftDeformer;
        };
        registry.registerType(std::move(info));
    }
    oz::Graph::instance().clear();
    const int side = static_cast<int>(state.range(0));
    const ZObject deformer = ZFnDependencyNode().create("benchLiftDeformer", "lift");
    ZPlug input, output, envelope;
    oz::Graph::instance().findPlug("lift.input[0].inputGeom", input);
    oz::Graph::instance().findPlug("lift.outputGeom[0]", output);
    oz::Graph::instance().findPlug("lift.envelope", envelope);
    input.setValue(grid(side));

    float weight = 0.0f;
    for (auto _ : state) {
        envelope.setValue(weight += 1.0f);
        benchmark::DoNotOptimize(output.asZObject());
    }
    state.SetItemsProcessed(state.iterations() * side * side);
    oz::Graph::instance().clear();
}
BENCHMARK(BM_DeformerNodePass)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
