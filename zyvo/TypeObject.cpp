#include "TypeObject.h"

#include "Host.h"

#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZSelectionList.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvoHost/ZHostPlugins.h>

namespace zyvo {

namespace {

constexpr char kPlugin[] = "Type";

} // namespace

ZStatus loadTypePlugin() {
    return ZHost::isPluginLoaded(kPlugin) ? ZStatus::kSuccess : ZHost::loadPlugin(kPlugin);
}

ZStatus createTypeObject(const char* procedure, const std::string& what, TypeObject& made) {
    ZStringArray nodes;
    if (const ZStatus status = ZGlobal::executeCommand(procedure, nodes); !status || nodes.length() < 6) {
        ZGlobal::displayError(ZString(std::string("The Type plug-in's ") + procedure + " made no " + what));
        return status ? ZStatus::kFailure : status;
    }
    made.sourceName = nodes[0];
    made.shapeName = nodes[5];
    ZSelectionList list;
    ZStatus status = list.add(nodes[0]);
    if (status)
        status = list.add(nodes[1]);
    if (status)
        status = list.getDependNode(0, made.source);
    if (status)
        status = list.getDependNode(1, made.extrudeNode);
    return status;
}

ZStatus showFlatMesh(const ZString& sourceName, const std::string& transform, const std::string& shape) {
    const std::string commands = "createNode transform -n " + transform + ";\ncreateNode mesh -n " + shape +
                                 " -p " + transform + ";\nconnectAttr " + sourceName.asStdString() +
                                 ".outputMesh " + shape + ".inMesh;\n";
    return ZGlobal::executeCommand(ZString(commands));
}

ZStatus writeShownMesh(const std::string& shape, const std::vector<std::string>& outputs,
                       const std::string& preview, const ZHost::PreviewSize& previewSize, Host& host) {
    ZHost::MeshScene scene;
    if (const ZStatus status = ZHost::gatherMeshes({shape}, scene); !status)
        return status;
    std::vector<std::string> files = outputs;
    if (!preview.empty())
        files.push_back(preview);
    for (const std::string& file : files) {
        if (const ZStatus status = ZHost::writeMeshes(scene, file, previewSize); !status)
            return status;
        host.info("Wrote " + file);
    }
    return ZStatus::kSuccess;
}

} // namespace zyvo
