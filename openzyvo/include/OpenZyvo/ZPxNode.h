#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZTypeId.h>

class ZPlug;
class ZPlugArray;
class ZDataBlock;
class ZDGContext;
class ZEvaluationNode;

namespace oz {
class Node;
struct NodeAccess;
} // namespace oz

// Base of every node class, built-in or from a plug-in. The runtime creates
// instances through the creator registered with the node type and owns them.
class OZ_API ZPxNode {
public:
    // The kind of node a type registers as. Locators, manipulator containers,
    // shapes and transforms live in the DAG (they have parents and children).
    enum Type {
        kDependNode = 0,
        kLocatorNode = 1,
        kDeformerNode = 2,
        kManipContainer = 3,
        kSurfaceShape = 4,
        kTransformNode = 5,
        kLast
    };

    // How the evaluator may schedule compute() of nodes of this class.
    enum SchedulingType { kParallel = 0, kSerial = 1, kGloballySerial = 2, kUntrusted = 3 };

    ZPxNode();
    virtual ~ZPxNode();
    ZPxNode(const ZPxNode&) = delete;
    ZPxNode& operator=(const ZPxNode&) = delete;

    // Called once the node exists in the graph with its attributes and name.
    virtual void postConstructor();

    // Computes `plug` from the inputs in `block`. Return kUnknownParameter for
    // plugs the node does not compute: the runtime then uses the stored value.
    virtual ZStatus compute(const ZPlug& plug, ZDataBlock& block);

    // Called for each plug of this node being dirtied; append to `affected`
    // any further plugs of this node that must be dirtied with it, beyond the
    // declared attributeAffects relations.
    virtual ZStatus setDependentsDirty(const ZPlug& plug, ZPlugArray& affected);

    // Called before the first compute() after inputs of the node changed, with
    // the plugs dirtied since its last evaluation.
    virtual ZStatus preEvaluation(const ZDGContext& context, const ZEvaluationNode& evaluationNode);

    // Told after a connection to or from a plug of this node was made or broken.
    // Return kUnknownParameter to let the runtime handle it alone.
    virtual ZStatus connectionMade(const ZPlug& plug, const ZPlug& otherPlug, bool asSrc);
    virtual ZStatus connectionBroken(const ZPlug& plug, const ZPlug& otherPlug, bool asSrc);

    virtual SchedulingType schedulingType() const;
    virtual Type type() const;

    ZObject thisZObject() const;
    ZString name() const;
    ZString typeName() const;
    ZTypeId typeId() const;

    // Only valid inside the initialiser of a node type being registered:
    // they apply to that type.
    static ZStatus addAttribute(const ZObject& attribute);
    static ZStatus attributeAffects(const ZObject& whenChanges, const ZObject& isAffected);
    static ZStatus inheritAttributesFrom(const ZString& parentTypeName);

private:
    friend struct oz::NodeAccess;
    oz::Node* m_node = nullptr;
};
