// The type node's settings, from the fuzz bytes through to its flat mesh: the
// font family and style (installed ones, missing ones or bytes), the
// decomposition path, the numeric settings (small values or any float bits)
// and the text. Whatever they hold, the mesh has finite points, and the
// arrays beside it describe it: the vertex totals rise to its vertex count,
// the shells add up, and the hole records name the mesh's hole loops, each
// with its face, its length and its first vertex.
//
// Bytes, each read as 0 once the input ends: font, style, switches,
// alignment, curve resolution, divisions, then eight numbers (one byte, and
// four more of float bits when that byte is 0xF0 or above), then the text.
#include "textsource/HexText.h"

#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnDoubleArrayData.h>
#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvoHost/ZHostMessages.h>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

// Long enough for several lines and words, short enough that one input stays
// within milliseconds in the sanitizer build.
constexpr std::size_t kLongestText = 32;
constexpr std::size_t kLongestName = 24;

constexpr std::array<const char*, 7> kFamilies{"DejaVu Sans",      "DejaVu Serif",    "Liberation Sans",
                                               "Liberation Serif", "Liberation Mono", "",
                                               "No Such Family"};
constexpr std::array<const char*, 6> kStyles{"Book", "Bold", "Regular", "Italic", "Bold Oblique", ""};

class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size)
        : m_data(data)
        , m_size(size) {}

    std::uint8_t byte() { return m_at < m_size ? m_data[m_at++] : 0; }

    std::string text(std::size_t longest) {
        const std::size_t length = std::min(longest, m_size - m_at);
        std::string text(reinterpret_cast<const char*>(m_data + m_at), length);
        m_at += length;
        return text;
    }

    std::string name(const char* const* known, std::size_t count) {
        const std::size_t choice = byte() % (count + 1);
        return choice < count ? known[choice] : text(byte() % (kLongestName + 1));
    }

    float number() {
        const std::uint8_t first = byte();
        if (first < 0xF0)
            return static_cast<float>(static_cast<std::int8_t>(first)) / 4.0f;
        std::uint32_t bits = 0;
        for (int i = 0; i < 4; ++i)
            bits = bits << 8 | byte();
        float value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_at = 0;
};

void require(bool condition) {
    if (!condition)
        std::abort();
}

void require(const ZStatus& status) {
    require(static_cast<bool>(status));
}

// The plug-in is loaded once per process, with one type node: its font
// catalogue is scanned once, and each input edits the same node as a user
// would.
ZFnDependencyNode& typeNode() {
    static ZFnDependencyNode node = [] {
        ZHost::showMessages(false);
        require(ZFileIO::newFile(true));
        require(ZGlobal::executeCommand("loadPlugin Type"));
        ZStatus status;
        const ZObject created = ZFnDependencyNode().create(ZString("type"), &status);
        require(status);
        return ZFnDependencyNode(created);
    }();
    return node;
}

ZPlug plug(const char* name) {
    ZStatus status;
    ZPlug found = typeNode().findPlug(ZString(name), true, &status);
    require(status);
    return found;
}

template <typename Fn, typename Array> Array arrayOf(const char* name) {
    ZObject data;
    Array values;
    if (plug(name).getValue(data) && !data.isNull())
        Fn(data).copyTo(values);
    return values;
}

void checkOutputs() {
    ZObject meshData;
    if (!plug("outputMesh").getValue(meshData) || meshData.isNull())
        return; // a font that cannot be loaded fails the evaluation, with its message
    const ZFnMesh mesh(meshData);
    ZPointArray points;
    mesh.getPoints(points);
    for (const ZPoint& p : points)
        require(std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z));

    const ZDoubleArray totals = arrayOf<ZFnDoubleArrayData, ZDoubleArray>("vertsPerChar");
    for (unsigned int k = 1; k < totals.length(); ++k)
        require(totals[k] > totals[k - 1]);
    if (totals.length() > 0)
        require(totals[totals.length() - 1] == mesh.numVertices());

    double shells = 0.0;
    for (const double count : arrayOf<ZFnDoubleArrayData, ZDoubleArray>("solidsPerCharacter"))
        shells += std::trunc(count);
    require(shells == plug("numberOfShells").asInt());

    // The records come in the order the holes were cut, the mesh lists its
    // holes face by face.
    const ZIntArray records = arrayOf<ZFnIntArrayData, ZIntArray>("holeInfo");
    require(records.length() % 3 == 0);
    std::vector<std::array<int, 3>> holes;
    for (unsigned int h = 0; h < records.length(); h += 3)
        holes.push_back({records[h], records[h + 1], records[h + 2]});
    std::stable_sort(holes.begin(), holes.end(), [](const auto& a, const auto& b) { return a[0] < b[0]; });
    ZIntArray meshHoles, holeVertices;
    mesh.getHoles(meshHoles, holeVertices);
    require(meshHoles.length() == records.length());
    for (unsigned int h = 0; h < meshHoles.length(); h += 3) {
        const std::array<int, 3>& hole = holes[h / 3];
        require(hole[0] == meshHoles[h] && hole[1] == meshHoles[h + 1]);
        require(hole[2] == holeVertices[static_cast<unsigned int>(meshHoles[h + 2])]);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Bytes bytes(data, size);
    plug("currentFont").setValue(ZString(bytes.name(kFamilies.data(), kFamilies.size()).c_str()));
    plug("currentStyle").setValue(ZString(bytes.name(kStyles.data(), kStyles.size()).c_str()));

    const std::uint8_t switches = bytes.byte();
    plug("legacyDecomposition").setValue(static_cast<bool>(switches & 1));
    plug("preTLDecompose").setValue(static_cast<bool>(switches & 2));
    plug("deformableType").setValue(static_cast<bool>(switches & 4));
    plug("removeColinear").setValue(static_cast<bool>(switches & 8));
    plug("enableDistanceFilter").setValue(static_cast<bool>(switches & 16));
    plug("setParity").setValue(static_cast<bool>(switches & 32));
    const bool rawText = switches & 64;
    // Values the plug refuses (past an enum's fields or an attribute's hard
    // limits) leave the previous value, as they would for a user. Curve
    // points and edge divisions multiply every outline's point count, so they
    // stay small: larger ones add time, not paths.
    plug("alignmentMode").setValue(static_cast<short>(1 + bytes.byte() % 3));
    plug("curveResolution").setValue(bytes.byte() % 8 - 1);
    plug("maxDivisions").setValue(bytes.byte() % 12 - 1);

    for (const char* name : {"fontSize", "kerningScale", "spaceWidthScale", "leadingScale", "tracking",
                             "colinearAngle", "pointDistanceFilter", "maxEdgeLength"})
        plug(name).setValue(bytes.number());

    const std::string text = bytes.text(kLongestText);
    plug("textInput").setValue(ZString((rawText ? text : type::encodeHexText(text)).c_str()));

    checkOutputs();
    return 0;
}
