#include "scene/MeshText.h"

#include "data/MeshData.h"
#include "scene/SceneText.h"
#include "scene/ValueList.h"

namespace oz::scene {

namespace {

struct FaceLoopsRead {
    std::vector<int32_t> outerCounts, outerIds;
    // Per face with holes: the face, its hole loop sizes and their ids.
    struct Holes {
        int32_t face;
        std::vector<int32_t> counts, ids;
    };
    std::vector<Holes> holes;
};

bool readCount(ValueList& values, const char* what, int minimum, int& count, std::string& error) {
    if (!values.integer(count, error)) {
        error = std::string("mesh: ") + what + ": " + error;
        return false;
    }
    if (count < minimum) {
        error = std::string("mesh: ") + what + " must be at least " + std::to_string(minimum) + ", found " +
                std::to_string(count);
        return false;
    }
    return true;
}

bool readLoop(ValueList& values, int vertexCount, std::vector<int32_t>& counts, std::vector<int32_t>& ids,
              std::string& error) {
    int size = 0;
    if (!readCount(values, "a loop's vertex count", 3, size, error))
        return false;
    if (static_cast<std::size_t>(size) > values.remaining()) {
        error = "mesh: a loop of " + std::to_string(size) + " vertices runs past the end of the values";
        return false;
    }
    counts.push_back(size);
    for (int i = 0; i < size; ++i) {
        int id = 0;
        if (!values.integer(id, error)) {
            error = "mesh: vertex id: " + error;
            return false;
        }
        if (id < 0 || id >= vertexCount) {
            error =
                "mesh: vertex id " + std::to_string(id) + " is outside 0.." + std::to_string(vertexCount - 1);
            return false;
        }
        ids.push_back(id);
    }
    return true;
}

bool readFaces(ValueList& values, int vertexCount, FaceLoopsRead& faces, std::string& error) {
    int faceCount = 0;
    if (!readCount(values, "the face count", 0, faceCount, error))
        return false;
    for (int f = 0; f < faceCount; ++f) {
        int loops = 0;
        if (!readCount(values, "a face's loop count", 1, loops, error) ||
            !readLoop(values, vertexCount, faces.outerCounts, faces.outerIds, error))
            return false;
        if (loops == 1)
            continue;
        FaceLoopsRead::Holes holes{f, {}, {}};
        for (int l = 1; l < loops; ++l)
            if (!readLoop(values, vertexCount, holes.counts, holes.ids, error))
                return false;
        faces.holes.push_back(std::move(holes));
    }
    return true;
}

// The kernel adds holes by position, merging with existing vertices. Built
// first over stand-in points that are all far apart, each hole vertex merges
// with exactly the vertex its id names; the real points come in after.
bool build(const std::vector<mesh::Point3>& points, const FaceLoopsRead& faces, mesh::Mesh& out,
           std::string& error) {
    std::vector<mesh::Point3> apart(points.size());
    for (std::size_t i = 0; i < apart.size(); ++i)
        apart[i] = {static_cast<double>(i), 0.0, 0.0};
    const bool holes = !faces.holes.empty();
    mesh::Status status = out.create(holes ? apart : points, faces.outerCounts, faces.outerIds);
    for (std::size_t h = 0; status == mesh::Status::Success && h < faces.holes.size(); ++h) {
        std::vector<mesh::Point3> loopPoints;
        for (const int32_t id : faces.holes[h].ids)
            loopPoints.push_back(apart[static_cast<std::size_t>(id)]);
        status = out.addHoles(faces.holes[h].face, loopPoints, faces.holes[h].counts, true, 0.25);
    }
    if (status == mesh::Status::Success && holes)
        status = out.setPoints(points);
    if (status != mesh::Status::Success) {
        error = std::string("mesh: the faces are not valid (") + mesh::statusText(status) + ")";
        return false;
    }
    return true;
}

} // namespace

std::shared_ptr<Data> parseMesh(ValueList& values, std::string& error) {
    int vertexCount = 0;
    if (!readCount(values, "the vertex count", 0, vertexCount, error))
        return nullptr;
    if (static_cast<std::size_t>(vertexCount) > values.remaining() / 3) {
        error = "mesh: " + std::to_string(vertexCount) + " vertices need " +
                std::to_string(3 * std::size_t(vertexCount)) + " coordinates, found " +
                std::to_string(values.remaining());
        return nullptr;
    }
    std::vector<mesh::Point3> points(static_cast<std::size_t>(vertexCount));
    for (mesh::Point3& p : points)
        if (!values.number(p.x, error) || !values.number(p.y, error) || !values.number(p.z, error)) {
            error = "mesh: point: " + error;
            return nullptr;
        }
    FaceLoopsRead faces;
    if (!readFaces(values, vertexCount, faces, error))
        return nullptr;
    auto data = std::make_shared<MeshData>();
    if (!build(points, faces, data->mesh, error))
        return nullptr;
    return data;
}

void formatMesh(const mesh::Mesh& mesh, std::string& out) {
    out += ' ' + std::to_string(mesh.vertexCount());
    for (const mesh::Point3& p : mesh.points()) {
        appendNumber(out, p.x);
        appendNumber(out, p.y);
        appendNumber(out, p.z);
    }
    out += ' ' + std::to_string(mesh.faceCount());
    const mesh::FaceLoops& faces = mesh.faces();
    for (int32_t f = 0; f < mesh.faceCount(); ++f) {
        const int32_t loops = faces.faceLoopCount(f);
        out += ' ' + std::to_string(loops);
        for (int32_t l = 0; l < loops; ++l) {
            const auto ids = faces.loop(f, l);
            out += ' ' + std::to_string(ids.size());
            for (const int32_t id : ids)
                out += ' ' + std::to_string(id);
        }
    }
}

} // namespace oz::scene
