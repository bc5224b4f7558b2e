#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <vector>

// A path from the top of the DAG down to one node: the transforms above it, then the node. A
// path stays what it was made as; after nodes were reparented or deleted it is no longer valid.
class OZ_API ZDagPath {
public:
    ZDagPath() = default;

    // The path to a DAG node; fails for other nodes.
    static ZStatus getAPathTo(const ZObject& node, ZDagPath& path);

    // Every node of the path still exists and is the parent of the next.
    bool isValid(ZStatus* status = nullptr) const;
    // The number of nodes on the path; 0 for an empty path.
    unsigned int length(ZStatus* status = nullptr) const;
    // The last node of the path.
    ZObject node(ZStatus* status = nullptr) const;
    // The last transform on the path: the node itself when it is one, else the one above it.
    ZObject transform(ZStatus* status = nullptr) const;
    ZFn::Type apiType(ZStatus* status = nullptr) const;
    bool hasFn(ZFn::Type type, ZStatus* status = nullptr) const;

    // When the path ends at a transform with exactly one shape below it, extends the path to that
    // shape. A path that ends at a shape is left as it is; anything else fails.
    ZStatus extendToShape();
    ZStatus push(const ZObject& child);
    ZStatus pop(unsigned int count = 1);
    unsigned int childCount(ZStatus* status = nullptr) const;
    ZObject child(unsigned int index, ZStatus* status = nullptr) const;

    // "|group1|transform1|meshShape1".
    ZString fullPathName(ZStatus* status = nullptr) const;
    // The node's name alone (node names are unique).
    ZString partialPathName(ZStatus* status = nullptr) const;

    // From the space of the path's last node to the world, and its inverse.
    ZMatrix inclusiveMatrix(ZStatus* status = nullptr) const;
    ZMatrix inclusiveMatrixInverse(ZStatus* status = nullptr) const;
    // The same without the last node's own transformation.
    ZMatrix exclusiveMatrix(ZStatus* status = nullptr) const;
    ZMatrix exclusiveMatrixInverse(ZStatus* status = nullptr) const;

    friend bool operator==(const ZDagPath& a, const ZDagPath& b) { return a.m_nodes == b.m_nodes; }

private:
    std::vector<ZObject> m_nodes; // from the top down
};
