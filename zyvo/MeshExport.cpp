#include "MeshExport.h"

#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvoHost/ZHostExport.h>
#include <filesystem>
#include <map>

namespace zyvo {

namespace {

// The same file however it is spelled: through "..", links or from the
// current folder.
std::filesystem::path resolved(const std::filesystem::path& file) {
    std::error_code error;
    std::filesystem::path path = std::filesystem::weakly_canonical(file, error);
    return error ? std::filesystem::absolute(file, error).lexically_normal() : path;
}

} // namespace

ZStatus checkDistinctFiles(const std::vector<std::string>& files) {
    std::map<std::filesystem::path, std::string> writers; // each file written, by the output that writes it
    for (const std::string& file : files) {
        for (const std::string& written : ZHost::filesWrittenFor(file)) {
            const auto [earlier, added] = writers.try_emplace(resolved(written), file);
            if (added)
                continue;
            ZGlobal::displayError(
                ZString(resolved(file) == resolved(earlier->second)
                            ? "The output " + file + " is given twice; each output must be a file of its own"
                            : "The outputs " + earlier->second + " and " + file + " would both write " +
                                  written + "; each output must be a file of its own"));
            return ZStatus::kInvalidParameter;
        }
    }
    return ZStatus::kSuccess;
}

} // namespace zyvo
