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
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPxCommand.h>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
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

class OutputWriter {
public:
    explicit OutputWriter(ZDataBlock& block)
        : m_block(block) {}

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

SvgCapSettings capSettings(ZDataBlock& block) {
    SvgCapSettings settings;
    settings.size = block.inputValue(svgNode::svgSize).asFloat();
    settings.useArtboard = block.inputValue(svgNode::useArtboard).asBool();
    settings.zOffset = block.inputValue(svgNode::zOffset).asFloat();
    settings.thinning.enableDistanceFilter = block.inputValue(svgNode::enableDistanceFilter).asBool();
    settings.thinning.pointDistanceFilter = block.inputValue(svgNode::pointDistanceFilter).asFloat();
    settings.thinning.removeColinear = block.inputValue(svgNode::removeColinear).asBool();
    settings.thinning.colinearAngle = block.inputValue(svgNode::colinearAngle).asFloat();
    if (block.inputValue(svgNode::deformableType).asBool()) {
        settings.subdivision = EdgeSubdivisionSettings{
            std::clamp(block.inputValue(svgNode::maxDivisions).asInt(), 1, 100),
            std::max<double>(block.inputValue(svgNode::maxEdgeLength).asFloat(), 0.01)};
    }
    return settings;
}

} // namespace

ZStatus svgNode::compute(const ZPlug& plug, ZDataBlock& block) {
    if (!isOutput(plug.attribute()))
        return ZStatus::kUnknownParameter;

    const ZString path = block.inputValue(svgFilepath).asString();
    const ZString paste = block.inputValue(svgPaste).asString();
    const auto mode = static_cast<SvgSourceMode>(block.inputValue(svgMode).asShort());
    SvgReadSettings readSettings;
    readSettings.legacy = block.inputValue(legacy2018).asBool();
    readSettings.curveResolution = std::clamp(block.inputValue(curveResolution).asInt(), 1, 100);
    const bool vertexColours = block.inputValue(displayVertexColours).asBool();
    const SvgCapSettings settings = capSettings(block);

    NodeOutputs out;
    std::vector<SvgShapeCap> caps;
    if (const std::optional<QByteArray> document = sourceDocument(mode, path, paste)) {
        const SvgReadResult read = readSvg(*document, readSettings);
        switch (read.status) {
        case SvgReadStatus::ok:
            caps = planShapeCaps(read.artwork, settings);
            if (caps.empty()) {
                showError(messages::text(messages::kTypeSVGNoValidInput));
                out.failed = true;
            }
            break;
        case SvgReadStatus::parseError:
            showError(messages::text(messages::kSVGParseError));
            out.failed = true;
            break;
        case SvgReadStatus::pathCountError:
            showError(messages::text(messages::kSVGNbPointsError));
            out.failed = true;
            break;
        case SvgReadStatus::tooLarge:
            showError(messages::text(svgMessages::kSVGTooLarge));
            out.failed = true;
            break;
        case SvgReadStatus::tooDeep:
            showError(messages::text(svgMessages::kSVGTooDeep));
            out.failed = true;
            break;
        }
        if (read.status == SvgReadStatus::ok)
            reportIssues(read.artwork.issues);
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

    OutputWriter writer(block);
    ZStatus status;
    writer.set(outputMesh, out.mesh);
    writer.set(vertsPerChar, ZFnDoubleArrayData().create(ZDoubleArray(out.record.vertexTotals), &status));
    writer.check(status, SourceLine::current());
    writer.set(holeInfo, ZFnIntArrayData().create(ZIntArray(std::vector<int>(out.record.holeInfo.begin(),
                                                                             out.record.holeInfo.end())),
                                                  &status));
    writer.check(status, SourceLine::current());
    writer.setValue(numberOfShells, shells);
    writer.set(solidsPerCharacter, ZFnDoubleArrayData().create(ZDoubleArray(out.shellsPerShape), &status));
    writer.check(status, SourceLine::current());
    writer.set(characterBoundingBoxesMin, ZFnVectorArrayData().create(out.boxMin, &status));
    writer.check(status, SourceLine::current());
    writer.set(characterBoundingBoxesMax, ZFnVectorArrayData().create(out.boxMax, &status));
    writer.check(status, SourceLine::current());
    writer.set(shellPositions, ZFnVectorArrayData().create(out.positions, &status));
    writer.check(status, SourceLine::current());
    writer.set(pathNames, ZFnStringArrayData().create(out.names, &status));
    writer.check(status, SourceLine::current());
    if (mode == SvgSourceMode::paste) {
        writer.set(pathNamesFromPaste, ZFnStringArrayData().create(out.names, &status));
        writer.check(status, SourceLine::current());
    }
    writer.setValue(errorIndicator, out.failed);
    for (const ZObject* output : kOutputs)
        writer.setClean(*output);
    return writer.status();
}

} // namespace type
