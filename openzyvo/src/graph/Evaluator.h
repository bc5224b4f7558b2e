#pragma once

#include "graph/Node.h"
#include "graph/PlugPath.h"

#include <OpenZyvo/ZDGContext.h>
#include <OpenZyvo/ZTime.h>
#include <cstdint>
#include <memory>
#include <unordered_map>

namespace oz {

// Values computed in one non-normal context (one time), valid until the
// graph is next edited.
struct ContextCache {
    ZTime time;
    std::uint64_t generation = 0;
    std::unordered_map<const Node*, NodeStore> stores;
};

struct EvalContext {
    bool normal = true;
    ZTime time;
    std::shared_ptr<ContextCache> cache;

    ZDGContext asContext() const { return normal ? ZDGContext() : ZDGContext(time); }
};

// A node being computed: what its ZDataBlock reads and writes.
struct EvalFrame {
    Node* node = nullptr;
    const EvalContext* context = nullptr;
};

// Pull evaluation. Reading a dirty plug reads its source when it is a
// connected destination, else computes it; what is read in a non-normal
// context lands in that context's cache, except plugs that do not depend on
// time, which are read in the normal context.
class Evaluator {
public:
    // The context current on this thread.
    EvalContext currentContext();

    // The up-to-date value of a plug; null when the path does not lead to a
    // value of the node.
    Slot* pull(Node& node, const Path& path, const EvalContext& context);
    // Storage of a plug in a context, without evaluating.
    Slot* storage(Node& node, const Path& path, const EvalContext& context, bool create = true);
    NodeStore& store(Node& node, const EvalContext& context);

private:
    void evaluate(Node& node, const Path& path, const EvalContext& context);
    void compute(Node& node, const Path& path, const EvalContext& context);
    ZStatus callCompute(Node& node, const Path& path, const EvalContext& context);
    void useStoredValue(Node& node, const Path& path, const EvalContext& context);
};

} // namespace oz
