#include "ExportJob.h"

#include "FrameRange.h"
#include "Host.h"
#include "MeshExport.h"

#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvoAnim/ZAnimControl.h>
#include <cstdio>
#include <unistd.h>

namespace zyvo {

namespace {

void reportError(const std::string& text) {
    ZGlobal::displayError(ZString(text));
}

// One line that a terminal sees rewritten in place and a log sees per frame.
class Progress {
public:
    Progress(std::size_t total, bool shown)
        : m_total(total)
        , m_shown(shown && total > 1)
        , m_terminal(::isatty(STDERR_FILENO) != 0) {}

    ~Progress() {
        if (m_shown && m_terminal && m_done > 0)
            std::fputc('\n', stderr);
    }

    void frameDone(long frame) {
        ++m_done;
        if (!m_shown)
            return;
        std::fprintf(stderr, "%sExported frame %ld (%zu/%zu)%s", m_terminal ? "\r" : "", frame, m_done,
                     m_total, m_terminal ? "" : "\n");
        std::fflush(stderr);
    }

private:
    std::size_t m_total;
    std::size_t m_done = 0;
    bool m_shown;
    bool m_terminal;
};

std::optional<long> wholeFrame(std::optional<double> frame) {
    if (!frame || *frame != static_cast<double>(static_cast<long>(*frame)))
        return std::nullopt;
    return static_cast<long>(*frame);
}

// The files each output names at `frame`, or the outputs as given.
std::vector<std::string> filesAt(const ExportRequest& request, std::optional<long> frame) {
    std::vector<std::string> files;
    for (const std::string& output : request.outputs)
        files.push_back(frame ? FramePattern(output).forFrame(*frame) : output);
    return files;
}

ZStatus exportFrame(const ExportRequest& request, std::optional<long> frame) {
    ZHost::MeshScene scene;
    if (const ZStatus status = ZHost::gatherMeshes({request.node}, scene); !status)
        return status;
    for (const std::string& file : filesAt(request, frame))
        if (const ZStatus status = ZHost::writeMeshes(scene, file, request.previewSize); !status)
            return status;
    return ZStatus::kSuccess;
}

// Patterns of different widths name the same file only once the numbers
// outgrow the narrower one, so the last frame is checked as well as the first.
ZStatus checkDistinctOutputs(const ExportRequest& request) {
    std::vector<std::optional<long>> frames{wholeFrame(request.frame)};
    if (request.frames)
        frames = {request.frames->first, (*request.frames)[request.frames->count() - 1]};
    for (const std::optional<long>& frame : frames)
        if (const ZStatus status = checkDistinctFiles(filesAt(request, frame)); !status)
            return status;
    return ZStatus::kSuccess;
}

} // namespace

ZStatus checkExportRequest(const ExportRequest& request) {
    for (const std::string& output : request.outputs) {
        if (!ZHost::meshFormatOf(output)) {
            reportError("Cannot export to " + output + ": use .obj, .stl, .glb or .png");
            return ZStatus::kInvalidParameter;
        }
        const FramePattern pattern(output);
        if (pattern.tooWide()) {
            reportError("The frame number pattern in " + output + " is too wide: pad to at most " +
                        std::to_string(kMaxPatternWidth) + " digits");
            return ZStatus::kInvalidParameter;
        }
        if (request.frames && request.frames->count() > 1 && !pattern.hasPattern()) {
            reportError("Several frames need a frame number pattern in " + output +
                        " (such as out.####.glb or out.%04d.glb)");
            return ZStatus::kInvalidParameter;
        }
        if (pattern.hasPattern() && !request.frames && !wholeFrame(request.frame)) {
            reportError("The frame number pattern in " + output +
                        " needs a whole frame (--frame or --frames)");
            return ZStatus::kInvalidParameter;
        }
    }
    return checkDistinctOutputs(request);
}

ZStatus runExport(const ExportRequest& request, Host& host) {
    if (const ZStatus status = checkExportRequest(request); !status)
        return status;
    if (!request.frames) {
        if (request.frame)
            ZAnimControl::setCurrentTime(ZTime(*request.frame));
        const std::optional<long> frame = wholeFrame(request.frame);
        const ZStatus status = exportFrame(request, frame);
        if (status)
            for (const std::string& file : filesAt(request, frame))
                host.info("Wrote " + file);
        return status;
    }
    const FrameRange& frames = *request.frames;
    Progress progress(frames.count(), !host.options().quiet);
    for (std::size_t index = 0; index < frames.count(); ++index) {
        const long frame = frames[index];
        ZAnimControl::setCurrentTime(ZTime(static_cast<double>(frame)));
        if (const ZStatus status = exportFrame(request, frame); !status) {
            reportError("Export stopped at frame " + std::to_string(frame));
            return status;
        }
        progress.frameDone(frame);
        host.flushErrors();
    }
    return ZStatus::kSuccess;
}

} // namespace zyvo
