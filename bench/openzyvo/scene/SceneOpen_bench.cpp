#include "commands/MessageLog.h"

#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZGlobal.h>
#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>

namespace {

// A scene of `count` transforms, each with a stored value and fed by the
// one before it, saved once and opened for every iteration: `count` nodes,
// `count` setAttr and `count` connections to read.
std::string sceneFile(int count) {
    const std::string path =
        (std::filesystem::temp_directory_path() / ("zyvo_scene_bench_" + std::to_string(count) + ".zya"))
            .string();
    ZFileIO::newFile(true);
    std::string script;
    for (int i = 0; i < count; ++i)
        script += "createNode transform -n n" + std::to_string(i) + ";setAttr n" + std::to_string(i) +
                  ".translate " + std::to_string(i) + " 1 2;";
    for (int i = 0; i < count; ++i)
        script += "connectAttr n" + std::to_string(i) + ".translateX n" + std::to_string((i + 1) % count) +
                  ".translateY;";
    ZGlobal::executeCommand(ZString(script));
    ZFileIO::save(ZString(path));
    return path;
}

void BM_OpenScene(benchmark::State& state) {
    oz::cmd::MessageLog::instance().setStreamOutput(false);
    const int count = static_cast<int>(state.range(0));
    const ZString path(sceneFile(count));
    for (auto _ : state) {
        if (!ZFileIO::open(path))
            state.SkipWithError("the scene did not open cleanly");
    }
    state.counters["nodes"] = count;
    state.counters["connections"] = count;
    state.SetItemsProcessed(state.iterations() * count);
    std::filesystem::remove(path.asStdString());
}
BENCHMARK(BM_OpenScene)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_SaveScene(benchmark::State& state) {
    oz::cmd::MessageLog::instance().setStreamOutput(false);
    const int count = static_cast<int>(state.range(0));
    const ZString path(sceneFile(count));
    for (auto _ : state)
        ZFileIO::save(path);
    state.SetItemsProcessed(state.iterations() * count);
    std::filesystem::remove(path.asStdString());
}
BENCHMARK(BM_SaveScene)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
