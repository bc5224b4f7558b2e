#pragma once

#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <cstddef>
#include <vector>

namespace oz {
class Node;
}

// The DAG seen from the runtime: which nodes are transforms and shapes, where they sit and
// where that puts them in the world. The DAG has no instancing: a node has one parent at most,
// so a node names its path.
namespace oz::nodes {

bool isDagNode(const Node& node);
bool isTransform(const Node& node);
// A DAG node that is not a transform: a shape or a locator.
bool isShape(const Node& node);

// The nodes from the top of the DAG down to `node`, which comes last.
std::vector<Node*> ancestry(Node& node);
// "|group1|transform1|meshShape1".
ZString fullPathName(Node& node);
// A node by its full path name, or null.
Node* findByFullPath(const ZString& path);

// From the node's space to its parent's: a transform's `matrix`, the identity for other nodes.
ZMatrix localMatrix(Node& node);
// From the node's space to the world.
ZMatrix worldMatrixOf(Node& node);
// From the space of the node's parent to the world.
ZMatrix parentWorldMatrix(Node& node);

// Marks the world matrix of `node` dirty, with everything that depends on it; below nodes that do
// not keep one, marks their children's instead.
void dirtyWorldMatrix(Node& node);
// Moves `child` under `parent` (to the top of the DAG when null). Fails for nodes outside the DAG
// and for moves that would make a node its own ancestor.
ZStatus reparent(Node& child, Node* parent);
// Where `node` stands among its parent's children (0 at the top of the DAG), and a move to another
// place there (the last when `index` is beyond them), so that undoing a move restores the order.
std::size_t siblingIndex(const Node& node);
void moveAmongSiblings(Node& node, std::size_t index);

} // namespace oz::nodes
