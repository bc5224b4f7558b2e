#pragma once

#include <OpenZyvo/ZString.h>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace oz::scene {

// The version written into new scene files. Older versions stay readable;
// nodes may ask for the version while a file is read to keep old behaviour.
constexpr int kLatestFileVersion = 211;

// What the runtime knows about the scene as a file. Main thread only.
struct FileState {
    static FileState& instance();

    bool reading = false;
    bool writing = false;
    int readingVersion = 0;
    ZString currentFile;
    // The graph's edit generation when the scene was last opened, saved or
    // made new (0 before that); any later edit makes the scene modified.
    std::uint64_t cleanGeneration = 0;
    // Free key/value notes stored in the file (`fileInfo`), in the order set.
    std::vector<std::pair<std::string, std::string>> fileInfo;

    void setFileInfo(const std::string& key, const std::string& value);
    std::optional<std::string> findFileInfo(const std::string& key) const;
    bool modified() const;
    void markClean();
};

} // namespace oz::scene
