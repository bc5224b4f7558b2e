#include "geometry/BoundingBox.h"
#include "plugin/ApiError.h"
#include "plugin/TypeMessages.h"
#include "svg/SvgCaps.h"
#include "svg/SvgMesh.h"
#include "svg/SvgMessages.h"
#include "svg/SvgNode.h"
#include "svg/SvgReader.h"
#include "svg/SvgSample.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZFnStringArrayData.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPxCommand.h>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cmath>
#include <optional>

namespace type {

namespace {

constexpr const char* kUnit = svgNode::kSourceUnit;

const ZObject* const kOutputs[] = {&svgNode::outputMesh,
                                   &svgNode::vertsPerChar,
                                   &svgNode::holeInfo,
                                   &svgNode::numberOfShells,
                                   &svgNode::solidsPerCharacter,
                                   &svgNode::characterBoundingBoxesMax,
                                   &svgNode::characterBoundingBoxesMin,
                                   &svgNode::pathNames,
                                   &svgNode::pathNamesFromPaste,
                                   &svgNode::shellPositions,
                                   &svgNode::errorIndicator};

bool isOutput(const ZObject& attribute) {
    return std::any_of(std::begin(kOutputs), std::end(kOutputs),
                       [&](const ZObject* output) { return *output == attribute; });
}

void showError(const ZString& text) {
    ZPxCommand::displayError(text);
}

// The document the node reads, or nothing after its error was shown.
std::optional<QByteArray> sourceDocument(SvgSourceMode mode, const ZString& path, const ZString& paste) {
    if (mode == SvgSourceMode::paste) {
        if (paste.length() == 0)
            return sampleArtwork();
        return QByteArray(paste.asChar(), static_cast<int>(paste.length()));
    }
    const QString fileName = QString::fromUtf8(path.asChar());
    if (fileName.isEmpty() || !QFileInfo(fileName).isFile()) {
        showError(messages::text(messages::kNoSVGFound));
        return std::nullopt;
    }
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        ZString text = messages::text(messages::kFileLoadError);
        text += path;
        showError(text);
        return std::nullopt;
    }
    return file.readAll();
}

// The error a failed read shows; none after a successful one.
const ZStringResourceId* failureMessage(SvgReadStatus status) {
    switch (status) {
    case SvgReadStatus::ok:
        return nullptr;
    case SvgReadStatus::parseError:
        return &messages::kSVGParseError;
    case SvgReadStatus::pathCountError:
        return &messages::kSVGNbPointsError;
    case SvgReadStatus::tooLarge:
        return &svgMessages::kSVGTooLarge;
    case SvgReadStatus::tooDeep:
        return &svgMessages::kSVGTooDeep;
    }
    return &messages::kSVGParseError;
}

// Everything the node writes, empty until a read succeeds.
struct NodeOutputs {
    ZObject mesh;
    SvgMeshRecord record;
    std::vector<double> shellsPerShape;
    ZVectorArray boxMin;
    ZVectorArray boxMax;
    ZVectorArray positions;
    ZStringArray names;
    bool failed = false;
};

// Reads and writes values of the node being computed. The first failing
// host call is reported where it was made and ends the evaluation; later
// calls do nothing.
class NodeValues {
public:
    explicit NodeValues(ZDataBlock& block)
        : m_block(block) {}

    ZDataHandle input(const ZObject& attribute, SourceLine where = SourceLine::current()) {
        if (!m_status)
            return {};
        ZStatus status;
        ZDataHandle handle = m_block.inputValue(attribute, &status);
        check(status, where);
        return handle;
    }

    void set(const ZObject& attribute, const ZObject& data, SourceLine where = SourceLine::current()) {
        if (!m_status)
            return;
        ZStatus status;
        ZDataHandle handle = m_block.outputValue(attribute, &status);
        if (check(status, where))
            check(handle.setZObject(data), where);
    }

    template <typename Value>
    void setValue(const ZObject& attribute, const Value& value, SourceLine where = SourceLine::current()) {
        if (!m_status)
            return;
        ZStatus status;
        ZDataHandle handle = m_block.outputValue(attribute, &status);
        if (check(status, where))
            handle.set(value);
    }

    void setClean(const ZObject& attribute, SourceLine where = SourceLine::current()) {
        if (m_status)
            check(m_block.setClean(attribute), where);
    }

    bool check(const ZStatus& status, SourceLine where) {
        if (m_status && !status)
            m_status = reportApiError(status, kUnit, where);
        return static_cast<bool>(m_status);
    }

    const ZStatus& status() const { return m_status; }

private:
    ZDataBlock& m_block;
    ZStatus m_status;
};

// A setting that is no number leaves its default, as an unusable one would
// otherwise spread through every point.
double finiteOr(double value, double fallback) {
    return std::isfinite(value) ? value : fallback;
}

SvgCapSettings capSettings(NodeValues& values) {
    SvgCapSettings settings;
    settings.thinning.enableDistanceFilter = values.input(svgNode::enableDistanceFilter).asBool();
    settings.thinning.removeColinear = values.input(svgNode::removeColinear).asBool();
    const bool subdivide = values.input(svgNode::deformableType).asBool();
    settings.useArtboard = values.input(svgNode::useArtboard).asBool();
    settings.thinning.pointDistanceFilter =
        finiteOr(values.input(svgNode::pointDistanceFilter).asFloat(), 0.2);
    settings.thinning.colinearAngle = finiteOr(values.input(svgNode::colinearAngle).asFloat(), 0.2);
    settings.zOffset = finiteOr(values.input(svgNode::zOffset).asFloat(), 0.001);
    settings.size = finiteOr(values.input(svgNode::svgSize).asFloat(), 10.0);
    const int maxDivisions = std::clamp(values.input(svgNode::maxDivisions).asInt(), 1, 100);
    const double maxEdgeLength =
        std::max(finiteOr(values.input(svgNode::maxEdgeLength).asFloat(), 5.0), 0.01);
    if (subdivide)
        settings.subdivision = EdgeSubdivisionSettings{maxDivisions, maxEdgeLength};
    return settings;
}

} // namespace

ZStatus svgNode::compute(const ZPlug& plug, ZDataBlock& block) {
    if (!isOutput(plug.attribute()))
        return ZStatus::kUnknownParameter;

    NodeValues values(block);
    const ZString path = values.input(svgFilepath).asString();
    const ZString paste = values.input(svgPaste).asString();
    const auto mode = static_cast<SvgSourceMode>(values.input(svgMode).asShort());
    SvgReadSettings readSettings;
    readSettings.legacy = values.input(legacy2018).asBool();
    const bool vertexColours = values.input(displayVertexColours).asBool();
    const SvgCapSettings settings = capSettings(values);
    readSettings.curveResolution = std::clamp(values.input(curveResolution).asInt(), 1, 100);
    if (!values.status())
        return values.status();

    NodeOutputs out;
    std::vector<SvgShapeCap> caps;
    if (const std::optional<QByteArray> document = sourceDocument(mode, path, paste)) {
        const SvgReadResult read = readSvg(*document, readSettings);
        if (const ZStringResourceId* failure = failureMessage(read.status)) {
            showError(messages::text(*failure));
            out.failed = true;
        } else {
            reportIssues(read.artwork.issues);
            caps = planShapeCaps(read.artwork, settings);
            if (std::any_of(caps.begin(), caps.end(),
                            [](const SvgShapeCap& cap) { return cap.holeOverlapsFace; }))
                ZGlobal::displayWarning(messages::text(messages::kSVGOverlapholes));
            if (caps.empty()) {
                showError(messages::text(messages::kTypeSVGNoValidInput));
                out.failed = true;
            }
        }
    } else {
        out.failed = true;
    }

    if (const ZStatus built = svgToMesh(caps, vertexColours, out.mesh, out.record); !built)
        return built;
    for (const SvgShapeCap& cap : caps) {
        out.shellsPerShape.push_back(static_cast<double>(cap.plan.faces.size()));
        const ZVector min(cap.plan.bounds.min.x, cap.plan.bounds.min.y, cap.z);
        out.boxMin.append(min);
        out.boxMax.append(ZVector(cap.plan.bounds.max.x, cap.plan.bounds.max.y, cap.z));
        out.positions.append(min);
        out.names.append(ZString(cap.name.c_str()));
    }
    std::int32_t shells = 0;
    for (const double count : out.shellsPerShape)
        shells += static_cast<std::int32_t>(count);

    ZStatus status;
    values.set(outputMesh, out.mesh);
    values.set(vertsPerChar, ZFnDoubleArrayData().create(ZDoubleArray(out.record.vertexTotals), &status));
    values.check(status, SourceLine::current());
    values.set(holeInfo, ZFnIntArrayData().create(ZIntArray(std::vector<int>(out.record.holeInfo.begin(),
                                                                             out.record.holeInfo.end())),
                                                  &status));
    values.check(status, SourceLine::current());
    values.setValue(numberOfShells, shells);
    values.set(solidsPerCharacter, ZFnDoubleArrayData().create(ZDoubleArray(out.shellsPerShape), &status));
    values.check(status, SourceLine::current());
    values.set(characterBoundingBoxesMin, ZFnVectorArrayData().create(out.boxMin, &status));
    values.check(status, SourceLine::current());
    values.set(characterBoundingBoxesMax, ZFnVectorArrayData().create(out.boxMax, &status));
    values.check(status, SourceLine::current());
    values.set(shellPositions, ZFnVectorArrayData().create(out.positions, &status));
    values.check(status, SourceLine::current());
    values.set(pathNames, ZFnStringArrayData().create(out.names, &status));
    values.check(status, SourceLine::current());
    if (mode == SvgSourceMode::paste) {
        values.set(pathNamesFromPaste, ZFnStringArrayData().create(out.names, &status));
        values.check(status, SourceLine::current());
    }
    values.setValue(errorIndicator, out.failed);
    for (const ZObject* output : kOutputs)
        values.setClean(*output);
    return values.status();
}

} // namespace type
