#pragma once

#include <string>
#include <utility>

namespace oz::exporter {

enum class ExportCode {
    kSuccess,
    kEmptyScene,     // nothing to write: no mesh holds a triangle
    kInvalidMesh,    // the input description contradicts itself (sizes, indices, non-finite values)
    kInvalidOptions, // e.g. a preview size the renderer cannot produce
    kWriteFailed,    // the file could not be created or written
    kRenderFailed,   // no off-screen OpenGL context
};

// What every writer returns: writers never throw, and a failure always says which file or mesh it concerns.
struct ExportStatus {
    ExportCode code = ExportCode::kSuccess;
    std::string message;

    bool ok() const { return code == ExportCode::kSuccess; }
    explicit operator bool() const { return ok(); }

    static ExportStatus success() { return {}; }
    static ExportStatus failure(ExportCode code, std::string message) { return {code, std::move(message)}; }
};

} // namespace oz::exporter
