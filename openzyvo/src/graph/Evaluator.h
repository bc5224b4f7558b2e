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
    // Bumped when the cache is recycled for another time: the stores' slots
    // stay allocated but no longer count as current.
    std::uint64_t stamp = 1;
    // Unique among caches; renewed when `stores` is emptied, which ends
    // pointers into it.
    std::uint64_t id = 0;
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
    // Each takes the plug's current slot and returns it (looked up again if
    // it may have moved), or null when the plug no longer leads anywhere.
    Slot* evaluate(Node& node, const Path& path, const EvalContext& context, Slot* slot);
    Slot* compute(Node& node, const Path& path, const EvalContext& context, Slot* slot);
    Slot* useStoredValue(Node& node, const Path& path, const EvalContext& context, Slot* slot);
    Slot* refresh(Node& node, const Path& path, const EvalContext& context, Slot* known);
    ZStatus callCompute(Node& node, const Path& path, const EvalContext& context, Slot* slot);
    // Evaluates the dirty plugs upstream of a plug (not the plug itself),
    // sources first, without nesting.
    void settleUpstream(Node& node, const Path& path, const EvalContext& context);
};

} // namespace oz
