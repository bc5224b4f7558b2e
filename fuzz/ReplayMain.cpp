// Feeds a fuzz target every input kept in the folders and files named on the
// command line, so that CTest replays the inputs that once broke us in every
// build without needing libFuzzer.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace {

namespace fs = std::filesystem;

bool replay(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "replay: cannot read %s\n", file.c_str());
        return false;
    }
    const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    std::fprintf(stderr, "replay: %s (%zu bytes)\n", file.c_str(), bytes.size());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    return true;
}

// Sorted, so that a failure names the same input on every machine.
std::vector<fs::path> inputsOf(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

int main(int argc, char** argv) {
    if (LLVMFuzzerInitialize)
        LLVMFuzzerInitialize(&argc, &argv);
    std::size_t count = 0;
    for (int i = 1; i < argc; ++i) {
        const fs::path path(argv[i]);
        std::error_code error;
        if (fs::is_directory(path, error)) {
            for (const fs::path& file : inputsOf(path))
                count += replay(file) ? 1 : 0;
        } else if (fs::is_regular_file(path, error)) {
            count += replay(path) ? 1 : 0;
        } else {
            std::fprintf(stderr, "replay: no corpus at %s\n", path.c_str());
            return 1;
        }
    }
    if (count == 0) {
        std::fprintf(stderr, "replay: no inputs\n");
        return 1;
    }
    std::printf("replay: %zu inputs, no failure\n", count);
    return 0;
}
