#include "deformers/TypeAnimationDeformer.h"
#include "deformers/VectorAdjustments.h"
#include "extrude/TypeExtrude.h"
#include "extrude/VectorExtrudeNode.h"
#include "interaction/DisplayPoints.h"
#include "interaction/PointsDrawOverride.h"
#include "interaction/TypeManip.h"
#include "interaction/TypeManipContextCommand.h"
#include "plugin/ApiError.h"
#include "plugin/LegacyFileRead.h"
#include "plugin/TypeMessages.h"
#include "shading/AssignShaderCommand.h"
#include "shading/ObjGrpToComp.h"
#include "svg/SvgNode.h"
#include "textnode/FontNode.h"

#include <OpenZyvo/ZApiVersion.h>
#include <OpenZyvo/ZFnPlugin.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZSceneMessage.h>
#include <OpenZyvoRender/ZDrawRegistry.h>

ZYVO_DEFINE_API_VERSION;

namespace {

using namespace type;

constexpr char kUnit[] = "pluginMain";

const ZString drawClassification(displayPoints::kDrawClassification);
const ZString drawRegistrantId(pointsDrawOverride::kRegistrantId);

ZCallbackId beforeFileReadId = 0;
ZCallbackId afterFileReadId = 0;

// Registration order is part of the plug-in's contract with saved scenes and
// host scripts; a failure stops it where it is and the host unloads us.
ZStatus registerAll(ZFnPlugin& plugin) {
    ZStatus status =
        plugin.registerNode(fontNode::kTypeName, fontNode::kTypeId, fontNode::creator, fontNode::initialize);
    if (!status)
        return reportApiError(status, kUnit);
    status = plugin.registerNode(TypeAnimationDeformer::kTypeName, TypeAnimationDeformer::kTypeId,
                                 TypeAnimationDeformer::creator, TypeAnimationDeformer::initialize,
                                 ZPxNode::kDeformerNode);
    if (!status)
        return reportApiError(status, kUnit);
    status = plugin.registerNode(vectorAdjustments::kTypeName, vectorAdjustments::kTypeId,
                                 vectorAdjustments::creator, vectorAdjustments::initialize,
                                 ZPxNode::kDeformerNode);
    if (!status)
        return reportApiError(status, kUnit);
    status = plugin.registerNode(typeExtrude::kTypeName, typeExtrude::kTypeId, typeExtrude::creator,
                                 typeExtrude::initialize);
    if (!status)
        return reportApiError(status, kUnit);
    status = plugin.registerNode(TypeExtrude::kTypeName, TypeExtrude::kTypeId, TypeExtrude::creator,
                                 TypeExtrude::initialize);
    if (!status)
        return reportApiError(status, kUnit);
    status = plugin.registerNode(svgNode::kTypeName, svgNode::kTypeId, svgNode::creator, svgNode::initialize);
    if (!status)
        return reportApiError(status, kUnit);
    status = plugin.registerContextCommand(typeManipContextCommand::kCommandName,
                                           typeManipContextCommand::creator);
    if (!status)
        return reportApiError(status, kUnit);
    status = plugin.registerNode(typeManip::kTypeName, typeManip::kTypeId, typeManip::creator,
                                 typeManip::initialize, ZPxNode::kManipContainer);
    if (!status)
        return reportApiError(status, kUnit);
    status = plugin.registerCommand(AssignShaderCommand::kCommandName, AssignShaderCommand::creator,
                                    AssignShaderCommand::newSyntax);
    if (!status)
        return reportApiError(status, kUnit);
    status = plugin.registerNode(displayPoints::kTypeName, displayPoints::kTypeId, displayPoints::creator,
                                 displayPoints::initialize, ZPxNode::kLocatorNode, &drawClassification);
    if (!status)
        return reportApiError(status, kUnit);
    status = ZHWRender::ZDrawRegistry::registerDrawOverrideCreator(drawClassification, drawRegistrantId,
                                                                   pointsDrawOverride::creator);
    if (!status)
        return reportApiError(status, kUnit);
    status = plugin.registerNode(objGrpToComp::kTypeName, objGrpToComp::kTypeId, objGrpToComp::creator,
                                 objGrpToComp::initialize);
    if (!status)
        return reportApiError(status, kUnit);
    return status;
}

ZStatus deregisterNodes(ZFnPlugin& plugin) {
    for (const unsigned int id : {TypeExtrude::kTypeId, fontNode::kTypeId, TypeAnimationDeformer::kTypeId,
                                  typeExtrude::kTypeId, typeManip::kTypeId, displayPoints::kTypeId,
                                  objGrpToComp::kTypeId, vectorAdjustments::kTypeId, svgNode::kTypeId})
        if (const ZStatus status = plugin.deregisterNode(id); !status)
            return reportApiError(status, kUnit);
    return ZStatus::kSuccess;
}

} // namespace

ZYVO_PLUGIN_EXPORT ZStatus initializePlugin(ZObject object) {
    ZFnPlugin plugin(object, "Type", "2.0a", "Any");

    // Without its strings the plug-in still works: lookups fall back to the
    // default texts.
    ZStatus status = plugin.registerUIStrings(messages::typeToolInitStrings, "typeToolInitStrings");
    if (!status) {
        status.perror("register UI strings");
        status.clear();
    }

    status = registerAll(plugin);
    if (!status)
        return status;

    status = ZGlobal::executeCommand("typeInitPlugin", false, false);
    if (!status)
        return reportApiError(status, kUnit);

    beforeFileReadId =
        ZSceneMessage::addCallback(ZSceneMessage::kBeforeFileRead, legacy::beforeFileRead, nullptr, &status);
    if (!status)
        return reportApiError(status, kUnit);
    afterFileReadId =
        ZSceneMessage::addCallback(ZSceneMessage::kAfterFileRead, legacy::afterFileRead, nullptr, &status);
    if (!status)
        return reportApiError(status, kUnit);
    return status;
}

ZYVO_PLUGIN_EXPORT ZStatus uninitializePlugin(ZObject object) {
    ZFnPlugin plugin(object);

    ZStatus status = ZMessage::removeCallback(beforeFileReadId);
    if (!status)
        return reportApiError(status, kUnit);
    status = ZMessage::removeCallback(afterFileReadId);
    if (!status)
        return reportApiError(status, kUnit);

    status = plugin.deregisterCommand(AssignShaderCommand::kCommandName);
    if (!status)
        return reportApiError(status, kUnit);
    status = deregisterNodes(plugin);
    if (!status)
        return status;
    status = plugin.deregisterContextCommand(typeManipContextCommand::kCommandName);
    if (!status)
        return reportApiError(status, kUnit);

    // The override was registered as a draw override but goes through the
    // geometry-override call; scripts and hosts have always seen it so.
    status =
        ZHWRender::ZDrawRegistry::deregisterGeometryOverrideCreator(drawClassification, drawRegistrantId);
    if (!status) {
        status.perror("deregisterGeometryOverrideCreator Point");
        return status;
    }

    status = ZGlobal::executeCommand("typeUninitPlugin", false, false);
    if (!status)
        return reportApiError(status, kUnit);
    return status;
}
