#include "../RegisterNode.h"
#include "../SharedWorkload.h"
#include "deformers/TypeAnimationDeformer.h"
#include "deformers/VectorAdjustments.h"
#include "extrude/TypeExtrude.h"
#include "textnode/FontNode.h"
#include "textsource/HexText.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPxGeometryFilter.h>
#include <OpenZyvo/ZTime.h>
#include <OpenZyvo/ZVectorArray.h>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <string>

namespace type {
namespace {

// P1000 in DejaVu Sans at 4 segments per curve, fontSize 1, extruded 0.25 deep with bevels 0.02
// wide and deep in 3 divisions front and back, then through a shellDeformer and a vectorAdjust
// wired as a text object wires them.
class AnimatedScene {
public:
    explicit AnimatedScene(const std::string& text) {
        registerNode<fontNode>();
        registerNode<TypeExtrude>();
        registerNode<TypeAnimationDeformer>(ZPxNode::kDeformerNode);
        registerNode<vectorAdjustments>(ZPxNode::kDeformerNode);
        ZFileIO::newFile(true);
        m_text = ZFnDependencyNode().create(ZString(fontNode::kTypeName));
        m_extrude = ZFnDependencyNode().create(ZString(TypeExtrude::kTypeName));
        m_animation = ZFnDependencyNode().create(ZString(TypeAnimationDeformer::kTypeName));
        m_adjust = ZFnDependencyNode().create(ZString(vectorAdjustments::kTypeName));
        ZDGModifier modifier;
        modifier.connect(ZPlug(m_text, fontNode::outputMesh), ZPlug(m_extrude, TypeExtrude::inputMesh));
        modifier.connect(ZPlug(m_text, fontNode::vertsPerChar), ZPlug(m_extrude, TypeExtrude::vertsPerChar));
        modifier.connect(ZPlug(m_extrude, TypeExtrude::outputMesh), geometryIn(m_animation));
        modifier.connect(ZPlug(m_animation, ZPxGeometryFilter::outputGeom).elementByLogicalIndex(0),
                         geometryIn(m_adjust));
        for (const ZObject& deformer : {m_animation, m_adjust}) {
            modifier.connect(ZPlug(m_text, fontNode::grouping),
                             ZFnDependencyNode(deformer).findPlug("grouping", true));
            modifier.connect(ZPlug(m_extrude, TypeExtrude::vertexGroupIds),
                             ZFnDependencyNode(deformer).findPlug("vertexGroupIds", true));
        }
        if (!modifier.doIt())
            std::abort();
        ZPlug(m_text, fontNode::currentFont).setValue("DejaVu Sans");
        ZPlug(m_text, fontNode::currentStyle).setValue("Book");
        ZPlug(m_text, fontNode::curveResolution).setValue(4);
        ZPlug(m_text, fontNode::fontSize).setValue(1.0);
        ZPlug(m_text, fontNode::textInput).setValue(encodeHexText(text));
        const auto extrude = [&](const ZObject& attribute) {
            return ZPlug(m_extrude, attribute);
        };
        extrude(TypeExtrude::extrudeDistance).setValue(0.25);
        extrude(TypeExtrude::bevelStyle).setValue(2);
        extrude(TypeExtrude::enableFrontBevel).setValue(true);
        extrude(TypeExtrude::enableBackBevel).setValue(true);
        for (const ZObject* distance : {&TypeExtrude::bevelDistance, &TypeExtrude::bevelOffset,
                                        &TypeExtrude::backBevelDistance, &TypeExtrude::backBevelOffset})
            extrude(*distance).setValue(0.02);
        extrude(TypeExtrude::bevelDivisions).setValue(3);
        extrude(TypeExtrude::backBevelDivisions).setValue(3);
    }
    ~AnimatedScene() { ZFileIO::newFile(true); }

    // Every channel keyed from rest at frame 1 to a move at frame 25, with random delays over 50
    // frames.
    void keyEveryChannel() {
        animation(TypeAnimationDeformer::enableAnimation).setValue(true);
        animation(TypeAnimationDeformer::randomDelay).setValue(true);
        const std::string node = ZFnDependencyNode(m_animation).name().asStdString();
        const std::pair<const char*, double> channels[] = {
            {"animationPositionX", 1.0},  {"animationPositionY", 2.0},  {"animationPositionZ", -1.0},
            {"animationRotationX", 30.0}, {"animationRotationY", 45.0}, {"animationRotationZ", 90.0},
            {"animationScaleX", 2.0},     {"animationScaleY", 0.5},     {"animationScaleZ", 1.5}};
        for (const auto& [channel, moved] : channels) {
            const double rest = std::string(channel).find("Scale") != std::string::npos ? 1.0 : 0.0;
            for (const auto& [frame, value] : {std::pair{1.0, rest}, std::pair{25.0, moved}})
                if (!ZGlobal::executeCommand(ZString(("setKeyframe -t " + std::to_string(frame) + " -v " +
                                                      std::to_string(value) + " -at " + channel + " " + node)
                                                         .c_str())))
                    std::abort();
        }
    }

    ZPlug animation(const ZObject& attribute) const { return ZPlug(m_animation, attribute); }
    ZPlug adjust(const ZObject& attribute) const { return ZPlug(m_adjust, attribute); }

    int deformed(const ZObject& deformer) {
        ZObject data;
        if (!ZPlug(deformer, ZPxGeometryFilter::outputGeom).elementByLogicalIndex(0).getValue(data) ||
            data.isNull())
            std::abort();
        return ZFnMesh(data).numVertices();
    }
    int animated() { return deformed(m_animation); }
    int adjusted() { return deformed(m_adjust); }

    int characters() {
        ZObject data;
        ZPlug(m_text, fontNode::solidsPerCharacter).getValue(data);
        return static_cast<int>(ZFnDoubleArrayData(data).length());
    }

private:
    static ZPlug geometryIn(const ZObject& deformer) {
        return ZPlug(deformer, ZPxGeometryFilter::input)
            .elementByLogicalIndex(0)
            .child(ZPxGeometryFilter::inputGeom);
    }

    ZObject m_text;
    ZObject m_extrude;
    ZObject m_animation;
    ZObject m_adjust;
};

std::optional<std::string> paragraph(benchmark::State& state) {
    auto text = sharedWorkload("p1000.txt");
    if (!text)
        state.SkipWithError("p1000.txt not found: set ZYVO_BENCH_WORKLOADS to the shared workloads");
    return text;
}

// One frame of the shellDeformer alone: the frames alternate, so every element moves anew.
void frames(benchmark::State& state, double first, double second) {
    const auto text = paragraph(state);
    if (!text)
        return;
    AnimatedScene scene(*text);
    scene.keyEveryChannel();
    int vertices = scene.animated();
    const double times[] = {first, second};
    std::size_t round = 0;
    for (auto _ : state) {
        scene.animation(TypeAnimationDeformer::time).setValue(ZTime(times[round++ % 2]));
        vertices = scene.animated();
    }
    state.counters["vertices"] = vertices;
}

void BM_P1000BevelShellDeformerFrame(benchmark::State& state) {
    frames(state, 30.0, 31.0);
}
BENCHMARK(BM_P1000BevelShellDeformerFrame)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();

// Frames before any key: every channel holds its rest value and nothing moves.
void BM_P1000BevelShellDeformerStill(benchmark::State& state) {
    frames(state, -100.0, -101.0);
}
BENCHMARK(BM_P1000BevelShellDeformerStill)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();

// One stored adjustment changes with every character adjusted: the vectorAdjust lays out every
// line anew (the shellDeformer before it is off and passes the solid through).
void BM_P1000BevelVectorAdjust(benchmark::State& state) {
    const auto text = paragraph(state);
    if (!text)
        return;
    AnimatedScene scene(*text);
    const int characters = scene.characters();
    ZVectorArray offsets(static_cast<unsigned int>(characters), ZVector(0.01, 0.0, 0.0));
    const auto store = [&](const ZObject& attribute, const ZVectorArray& values) {
        scene.adjust(attribute).setValue(ZFnVectorArrayData().create(values));
    };
    store(vectorAdjustments::manipulatorRotationsPP, ZVectorArray(offsets.length(), ZVector(0.0, 0.0, 5.0)));
    store(vectorAdjustments::manipulatorScalesPP, ZVectorArray(offsets.length(), ZVector(0.1, 0.1, 0.0)));
    int vertices = scene.adjusted();
    std::size_t round = 0;
    for (auto _ : state) {
        offsets[0] = ZVector(round++ % 2 ? 0.02 : 0.01, 0.0, 0.0);
        store(vectorAdjustments::manipulatorPositionsPP, offsets);
        vertices = scene.adjusted();
    }
    state.counters["vertices"] = vertices;
    state.counters["characters"] = characters;
}
BENCHMARK(BM_P1000BevelVectorAdjust)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

} // namespace
} // namespace type
