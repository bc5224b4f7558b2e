#pragma once

#include "export/ExportScene.h"

#include <OpenZyvoHost/ZHostExport.h>

namespace ZHost {

struct MeshScene::Data {
    oz::exporter::ExportScene scene;
};

} // namespace ZHost
