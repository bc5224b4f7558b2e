#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>

namespace type {

// The shared workloads that other text-to-mesh tools were timed on, in the folder beside the
// source tree (benchmarks get it by linking zyvo_shared_workloads), or where ZYVO_BENCH_WORKLOADS
// points.
inline std::optional<std::string> sharedWorkload(const std::string& name) {
    const char* overridden = std::getenv("ZYVO_BENCH_WORKLOADS");
    const std::filesystem::path folder = overridden ? overridden : ZYVO_SHARED_BENCH_DIR;
    std::ifstream file(folder / name, std::ios::binary);
    if (!file)
        return std::nullopt;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

} // namespace type
