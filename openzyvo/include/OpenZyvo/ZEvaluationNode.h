#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>

class ZPlug;
class ZPlugArray;

namespace oz {
class Node;
struct EvaluationNodeAccess;
} // namespace oz

// A node about to be evaluated, with the plugs dirtied since it was last
// evaluated. Handed to ZPxNode::preEvaluation().
class OZ_API ZEvaluationNode {
public:
    ZObject dependencyNode(ZStatus* status = nullptr) const;
    // Whether a plug of `attribute` is dirty, directly or through a compound
    // parent or child of it.
    bool dirtyPlugExists(const ZObject& attribute, ZStatus* status = nullptr) const;
    ZPlug dirtyPlug(const ZObject& attribute, ZStatus* status = nullptr) const;
    unsigned int dirtyPlugCount() const;
    ZStatus dirtyPlugs(ZPlugArray& plugs) const;

private:
    friend struct oz::EvaluationNodeAccess;
    explicit ZEvaluationNode(oz::Node* node)
        : m_node(node) {}
    oz::Node* m_node = nullptr;
};
