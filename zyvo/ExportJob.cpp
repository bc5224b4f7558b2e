#include "ExportJob.h"

#include "FrameRange.h"
#include "Host.h"
#include "MeshExport.h"

#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvoAnim/ZAnimControl.h>
#include <algorithm>
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

// Several frames into a .glb named without a frame number pattern make one animated glTF.
bool isAnimation(const ExportRequest& request, const std::string& output) {
    return request.frames && request.frames->count() > 1 && !FramePattern(output).hasPattern() &&
           ZHost::meshFormatOf(output) == ZHost::MeshFormat::Glb;
}

// The files each output names at `frame`, or the outputs as given.
std::vector<std::string> filesAt(const ExportRequest& request, std::optional<long> frame) {
    std::vector<std::string> files;
    for (const std::string& output : request.outputs)
        files.push_back(frame ? FramePattern(output).forFrame(*frame) : output);
    return files;
}

// Writes the outputs that take one file per frame and hands back the scene for the animations.
ZStatus exportFrame(const ExportRequest& request, std::optional<long> frame, ZHost::MeshScene& scene) {
    if (const ZStatus status = ZHost::gatherMeshes({request.node}, scene); !status)
        return status;
    for (std::size_t i = 0; i < request.outputs.size(); ++i) {
        if (isAnimation(request, request.outputs[i]))
            continue;
        const std::string file = filesAt(request, frame)[i];
        if (const ZStatus status = ZHost::writeMeshes(scene, file, request.previewSize); !status)
            return status;
    }
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
        if (request.frames && request.frames->count() > 1 && !pattern.hasPattern() &&
            !isAnimation(request, output)) {
            reportError("Several frames need a frame number pattern in " + output +
                        " (such as out.####.obj or out.%04d.obj), or a .glb to hold them as one animation");
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
        ZHost::MeshScene scene;
        const ZStatus status = exportFrame(request, frame, scene);
        if (status)
            for (const std::string& file : filesAt(request, frame))
                host.info("Wrote " + file);
        return status;
    }
    const FrameRange& frames = *request.frames;
    const bool animated =
        std::any_of(request.outputs.begin(), request.outputs.end(),
                    [&](const std::string& output) { return isAnimation(request, output); });
    std::vector<ZHost::MeshScene> scenes;
    std::vector<double> frameNumbers;
    Progress progress(frames.count(), !host.options().quiet);
    for (std::size_t index = 0; index < frames.count(); ++index) {
        const long frame = frames[index];
        ZAnimControl::setCurrentTime(ZTime(static_cast<double>(frame)));
        ZHost::MeshScene scene;
        if (const ZStatus status = exportFrame(request, frame, scene); !status) {
            reportError("Export stopped at frame " + std::to_string(frame));
            return status;
        }
        if (animated) {
            scenes.push_back(std::move(scene));
            frameNumbers.push_back(static_cast<double>(frame));
        }
        progress.frameDone(frame);
        host.flushErrors();
    }
    for (const std::string& output : request.outputs) {
        if (!isAnimation(request, output))
            continue;
        if (const ZStatus status = ZHost::writeAnimatedMeshes(scenes, frameNumbers, output); !status)
            return status;
        host.info("Wrote " + output);
    }
    return ZStatus::kSuccess;
}

} // namespace zyvo
