#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZDagPath.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZMatrix.h>

// Function set of DAG nodes: transforms, shapes and locators, which have a parent and children.
class OZ_API ZFnDagNode : public ZFnDependencyNode {
public:
    ZFnDagNode() = default;
    explicit ZFnDagNode(const ZObject& node, ZStatus* status = nullptr);
    explicit ZFnDagNode(const ZDagPath& path, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kDagNode; }

    using ZFnDependencyNode::setObject;
    ZStatus setObject(const ZDagPath& path);

    // Creates a DAG node of a registered type under `parent` (a transform; the null object for
    // the top of the DAG) and attaches the function set to it. A shape made without a parent gets
    // a new transform above it. Names are made unique as for any node.
    ZObject create(const ZString& typeName, const ZString& name = ZString(),
                   const ZObject& parent = ZObject::kNullObj, ZStatus* status = nullptr);
    ZObject create(const ZTypeId& typeId, const ZString& name = ZString(),
                   const ZObject& parent = ZObject::kNullObj, ZStatus* status = nullptr);

    // 1 below a parent, 0 at the top of the DAG.
    unsigned int parentCount(ZStatus* status = nullptr) const;
    ZObject parent(unsigned int index = 0, ZStatus* status = nullptr) const;
    unsigned int childCount(ZStatus* status = nullptr) const;
    ZObject child(unsigned int index, ZStatus* status = nullptr) const;
    bool isChildOf(const ZObject& node, ZStatus* status = nullptr) const;
    bool isParentOf(const ZObject& node, ZStatus* status = nullptr) const;

    // Moves `child` under this node, from wherever it was. Fails when the child is not a DAG
    // node, or is this node or one of its ancestors.
    ZStatus addChild(const ZObject& child);
    // Moves a child of this node to the top of the DAG.
    ZStatus removeChild(const ZObject& child);

    ZStatus getPath(ZDagPath& path) const;
    ZDagPath dagPath(ZStatus* status = nullptr) const;
    ZString fullPathName(ZStatus* status = nullptr) const;
    ZString partialPathName(ZStatus* status = nullptr) const;

    // The node's own transformation (the identity for shapes), and from its space to the world.
    ZMatrix transformationMatrix(ZStatus* status = nullptr) const;
    ZMatrix inclusiveMatrix(ZStatus* status = nullptr) const;
};
