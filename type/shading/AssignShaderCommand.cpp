#include "shading/AssignShaderCommand.h"

#include "plugin/ApiError.h"
#include "plugin/TypeMessages.h"

#include <OpenZyvo/ZArgDatabase.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZSelectionList.h>
#include <algorithm>
#include <set>
#include <vector>

namespace type {

namespace {

constexpr const char* kUnit = "assignShaderCmd";

constexpr const char* kGroupIdFlag = "-gr";
constexpr const char* kShaderGroupFlag = "-sg";
constexpr const char* kMeshFlag = "-me";

ZStatus showError(const ZStringResourceId& message) {
    ZPxCommand::displayError(messages::text(message));
    return ZStatus::kFailure;
}

// The one node `name` names, when it is of type `typeName`; the null object
// otherwise (no such node, several, or another type).
ZObject nodeOfType(const ZString& name, const char* typeName) {
    ZSelectionList list;
    ZObject node;
    if (!list.add(name) || list.length() != 1 || !list.getDependNode(0, node))
        return ZObject();
    return ZFnDependencyNode(node).typeName() == typeName ? node : ZObject();
}

// The first logical index missing from the array's existing ones (0, 1, 3
// give 2), or their count when there is no gap: where a new member goes
// without disturbing the ones that are there.
unsigned int firstFreeIndex(const ZPlug& array, ZStatus& status) {
    ZIntArray indices;
    array.getExistingArrayAttributeIndices(indices, &status);
    std::vector<int> sorted(indices.begin(), indices.end());
    std::sort(sorted.begin(), sorted.end());
    unsigned int index = 0;
    for (int existing : sorted) {
        if (existing != static_cast<int>(index))
            break;
        ++index;
    }
    return index;
}

// The first of the logical indices 0 .. element count - 1 whose element has
// no connection, or the element count when every one has: an element left
// over from a broken connection is used again.
unsigned int firstUnconnectedIndex(const ZPlug& array, ZStatus& status) {
    ZIntArray indices;
    array.getExistingArrayAttributeIndices(indices, &status);
    if (!status)
        return 0;
    const std::set<int> existing(indices.begin(), indices.end());
    const unsigned int count = static_cast<unsigned int>(existing.size());
    for (unsigned int index = 0; index < count; ++index) {
        // An index without an element has nothing connected; asking for its
        // plug would make the element.
        if (!existing.count(static_cast<int>(index)))
            return index;
        const ZPlug element = array.elementByLogicalIndex(index, &status);
        if (!status)
            return 0;
        if (!element.isConnected())
            return index;
    }
    return count;
}

ZPlug childPlug(const ZPlug& parent, const ZObject& node, const char* name, ZStatus& status) {
    const ZObject attribute = ZFnDependencyNode(node).attribute(name, &status);
    return status ? parent.child(attribute, &status) : ZPlug();
}

} // namespace

void* AssignShaderCommand::creator() {
    return new AssignShaderCommand;
}

ZSyntax AssignShaderCommand::newSyntax() {
    ZSyntax syntax;
    syntax.addFlag(kGroupIdFlag, "-groupIdNode", ZSyntax::kString);
    syntax.addFlag(kShaderGroupFlag, "-shaderGroup", ZSyntax::kString);
    syntax.addFlag(kMeshFlag, "-meshNode", ZSyntax::kString);
    return syntax;
}

bool AssignShaderCommand::hasSyntax() const {
    return false;
}

bool AssignShaderCommand::isUndoable() const {
    return true;
}

ZStatus AssignShaderCommand::undoIt() {
    return m_modifier.undoIt();
}

ZStatus AssignShaderCommand::redoIt() {
    return m_modifier.doIt();
}

ZStatus AssignShaderCommand::doIt(const ZArgList& argList) {
    ZStatus status;
    const ZArgDatabase args(syntax(), argList, &status);
    if (!status)
        return showError(messages::kTypeParseError);
    if (args.numberOfFlagsUsed() < 3)
        return showError(messages::kTypeMissingFlagsError);

    ZString groupIdName, shaderGroupName, meshName;
    if (!(status = args.getFlagArgument(kGroupIdFlag, 0, groupIdName)))
        return reportApiError(status, kUnit);
    if (!(status = args.getFlagArgument(kShaderGroupFlag, 0, shaderGroupName)))
        return reportApiError(status, kUnit);
    if (!(status = args.getFlagArgument(kMeshFlag, 0, meshName)))
        return reportApiError(status, kUnit);

    const ZObject groupIdNode = nodeOfType(groupIdName, "groupId");
    if (groupIdNode.isNull())
        return showError(messages::kGroupIDArgsError);
    const ZObject shaderGroup = nodeOfType(shaderGroupName, "shadingEngine");
    if (shaderGroup.isNull())
        return showError(messages::kShaderGroupArgsError);
    const ZObject mesh = nodeOfType(meshName, "mesh");
    if (mesh.isNull())
        return showError(messages::kMeshArgsError);

    const ZFnDependencyNode groupIdFn(groupIdNode);
    const ZPlug groupId = groupIdFn.findPlug("groupId", false, &status);
    if (!status)
        return reportApiError(status, kUnit);
    const ZPlug groupMessage = groupIdFn.findPlug("message", false, &status);
    if (!status)
        return reportApiError(status, kUnit);

    const ZFnDependencyNode shaderGroupFn(shaderGroup);
    const ZPlug wireframeColor = shaderGroupFn.findPlug("memberWireframeColor", false, &status);
    if (!status)
        return reportApiError(status, kUnit);
    const ZPlug members = shaderGroupFn.findPlug("dagSetMembers", false, &status);
    if (!status)
        return reportApiError(status, kUnit);
    const unsigned int memberIndex = firstFreeIndex(members, status);
    if (!status)
        return reportApiError(status, kUnit);
    const ZPlug member = members.elementByLogicalIndex(memberIndex, &status);
    if (!status)
        return reportApiError(status, kUnit);
    const ZPlug groupNodes = shaderGroupFn.findPlug("groupNodes", false, &status);
    if (!status)
        return reportApiError(status, kUnit);
    const unsigned int groupNodeIndex = firstUnconnectedIndex(groupNodes, status);
    if (!status)
        return reportApiError(status, kUnit);
    const ZPlug groupNode = groupNodes.elementByLogicalIndex(groupNodeIndex, &status);
    if (!status)
        return reportApiError(status, kUnit);

    const ZPlug instance =
        ZFnDependencyNode(mesh).findPlug("instObjGroups", false, &status).elementByLogicalIndex(0, &status);
    if (!status)
        return reportApiError(status, kUnit);
    const ZPlug objectGroups = childPlug(instance, mesh, "objectGroups", status);
    if (!status)
        return reportApiError(status, kUnit);
    const unsigned int groupIndex = firstFreeIndex(objectGroups, status);
    if (!status)
        return reportApiError(status, kUnit);
    const ZPlug objectGroup = objectGroups.elementByLogicalIndex(groupIndex, &status);
    if (!status)
        return reportApiError(status, kUnit);
    const ZPlug objectGroupId = childPlug(objectGroup, mesh, "objectGroupId", status);
    if (!status)
        return reportApiError(status, kUnit);
    const ZPlug objectGroupColor = childPlug(objectGroup, mesh, "objectGrpColor", status);
    if (!status)
        return reportApiError(status, kUnit);

    if (!(status = m_modifier.connect(groupId, objectGroupId)))
        return reportApiError(status, kUnit);
    if (!(status = m_modifier.connect(wireframeColor, objectGroupColor)))
        return reportApiError(status, kUnit);
    if (!(status = m_modifier.connect(objectGroup, member)))
        return reportApiError(status, kUnit);
    if (!(status = m_modifier.connect(groupMessage, groupNode)))
        return reportApiError(status, kUnit);
    if (!(status = m_modifier.doIt()))
        return reportApiError(status, kUnit);
    return ZStatus::kSuccess;
}

} // namespace type
