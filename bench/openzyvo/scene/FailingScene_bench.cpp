#include "commands/MessageLog.h"

#include <OpenZyvo/ZFileIO.h>
#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

// A damaged scene: one node, then `count` statements that each fail and are
// reported, the way a file broken by hand or by a faulty writer reads.
std::string failingScene(const std::string& kind, int count, const std::string& statement) {
    const std::string path =
        (std::filesystem::temp_directory_path() / ("zyvo_failing_" + kind + std::to_string(count) + ".zya"))
            .string();
    std::ofstream file(path);
    file << "//Zyvo ASCII scene\nfileInfo \"version\" \"211\";\ncreateNode transform -n a;\n";
    for (int i = 0; i < count; ++i)
        file << statement << "\n";
    return path;
}

void openFailing(benchmark::State& state, const std::string& kind, const std::string& statement) {
    oz::cmd::MessageLog::instance().setStreamOutput(false);
    const int count = static_cast<int>(state.range(0));
    const ZString path(failingScene(kind, count, statement));
    for (auto _ : state) {
        if (ZFileIO::open(path))
            state.SkipWithError("the damaged scene opened without errors");
    }
    state.SetItemsProcessed(state.iterations() * count);
    std::filesystem::remove(path.asStdString());
}

void BM_OpenSceneOfUnknownCommands(benchmark::State& state) {
    openFailing(state, "unknown", "noSuchCommand 1 2 3;");
}
BENCHMARK(BM_OpenSceneOfUnknownCommands)->Arg(5000)->Arg(10000)->Arg(20000)->Unit(benchmark::kMillisecond);

void BM_OpenSceneOfBadArrayIndices(benchmark::State& state) {
    openFailing(state, "indices", "setAttr \"a.translate[-1]\" 1;");
}
BENCHMARK(BM_OpenSceneOfBadArrayIndices)->Arg(5000)->Arg(10000)->Arg(20000)->Unit(benchmark::kMillisecond);

} // namespace
