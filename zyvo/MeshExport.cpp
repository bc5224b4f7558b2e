#include "MeshExport.h"

#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvoHost/ZHostExport.h>
#include <algorithm>
#include <filesystem>
#include <initializer_list>
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

bool hasFormat(const std::string& file, std::initializer_list<ZHost::MeshFormat> formats) {
    const auto format = ZHost::meshFormatOf(file);
    return format && std::find(formats.begin(), formats.end(), *format) != formats.end();
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

ZStatus checkMeshOutputs(const std::vector<std::string>& outputs, const std::string& preview,
                         const std::string& what) {
    if (const ZStatus status = checkDistinctFiles(outputs); !status)
        return status;
    for (const std::string& output : outputs) {
        if (!hasFormat(output, {ZHost::MeshFormat::Obj, ZHost::MeshFormat::Stl, ZHost::MeshFormat::Glb})) {
            ZGlobal::displayError(
                ZString("Cannot write " + what + " to " + output + ": use .obj, .stl or .glb"));
            return ZStatus::kInvalidParameter;
        }
    }
    if (!preview.empty() && !hasFormat(preview, {ZHost::MeshFormat::Png})) {
        ZGlobal::displayError(ZString("A preview is a .png file, not " + preview));
        return ZStatus::kInvalidParameter;
    }
    return ZStatus::kSuccess;
}

} // namespace zyvo
