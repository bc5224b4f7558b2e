#include "host/MeshSceneData.h"

namespace ZHost {

MeshScene::MeshScene()
    : m_data(std::make_unique<Data>()) {}

MeshScene::~MeshScene() = default;
MeshScene::MeshScene(MeshScene&&) noexcept = default;
MeshScene& MeshScene::operator=(MeshScene&&) noexcept = default;

bool MeshScene::isEmpty() const {
    return !m_data || m_data->scene.meshes.empty();
}

} // namespace ZHost
