#include "data/MeshShapeCreator.h"

#include <atomic>

namespace oz {

namespace {
std::atomic<MeshShapeCreator> installedCreator{nullptr};
} // namespace

void setMeshShapeCreator(MeshShapeCreator creator) {
    installedCreator.store(creator);
}

MeshShapeCreator meshShapeCreator() {
    return installedCreator.load();
}

} // namespace oz
