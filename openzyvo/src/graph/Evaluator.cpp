#include "graph/Evaluator.h"

#include "core/EvaluationScope.h"
#include "graph/BlockAccess.h"
#include "graph/Callbacks.h"
#include "graph/ContextState.h"
#include "graph/Graph.h"
#include "graph/PlugKey.h"
#include "graph/Report.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZEvaluationNode.h>
#include <OpenZyvo/ZPlug.h>
#include <cstdlib>

namespace oz {

namespace {

ZString plugText(const Node& node, const Path& path) {
    return node.name + "." + pathName(path, true, false);
}

// Whether `path` names a whole plug of its node: the top of a path, or an
// array as a whole at the top.
bool isTopmost(const Path& path) {
    return path.size() == 1 && path.front().index < 0;
}

} // namespace

EvalContext Evaluator::currentContext() {
    EvalContext context;
    const ZDGContext& current = currentContextSlot();
    if (current.isNormal())
        return context;
    context.normal = false;
    context.time = current.getTime();
    context.cache = Graph::instance().contextCache(context.time);
    return context;
}

NodeStore& Evaluator::store(Node& node, const EvalContext& context) {
    if (context.normal)
        return node.normal;
    ContextCache& cache = *context.cache;
    Node::ContextLookup& lookup = node.contextLookup;
    if (lookup.cache != cache.id) {
        lookup.cache = cache.id;
        lookup.store = &cache.stores[&node];
    }
    lookup.store->stamp = cache.stamp;
    return *lookup.store;
}

Slot* Evaluator::storage(Node& node, const Path& path, const EvalContext& context, bool create) {
    return node.resolve(store(node, context), path, create);
}

namespace {

// Slots of paths without array elements live as long as their node; an
// element's slot can go when its array is rebuilt (by a compute or a
// transfer), so it is looked up again after anything ran.
bool isStable(const Path& path) {
    for (const PathEntry& step : path)
        if (step.index >= 0)
            return false;
    return true;
}

} // namespace

namespace {

// Pulls nest as deep as the graph upstream of the plug read. Once nested
// pulls use this much stack, the plugs upstream are evaluated first, sources
// before readers, so that long chains cannot exhaust the stack.
constexpr std::ptrdiff_t kPullStackBudget = 1 << 20;
thread_local const char* pullBase = nullptr;

// Marks where the outermost pull of this thread began; an inner scope with
// `fresh` starts counting anew (settled plugs evaluate shallowly).
class PullScope {
public:
    explicit PullScope(bool fresh)
        : m_previous(pullBase) {
        if (fresh || !pullBase)
            pullBase = reinterpret_cast<const char*>(this);
    }
    ~PullScope() { pullBase = m_previous; }
    PullScope(const PullScope&) = delete;
    PullScope& operator=(const PullScope&) = delete;

    static bool deep() {
        const char here = 0;
        return pullBase && std::abs(pullBase - &here) > kPullStackBudget;
    }

private:
    const char* m_previous;
};

} // namespace

void Evaluator::settleUpstream(Node& node, const Path& path, const EvalContext& context) {
    struct Item {
        Node* node;
        Path path;
        bool expanded;
    };
    std::vector<Item> stack{Item{&node, path, false}};
    std::vector<Item> order;
    PlugKeySet seen;
    Graph& graph = Graph::instance();
    while (!stack.empty()) {
        if (stack.back().expanded) {
            order.push_back(std::move(stack.back()));
            stack.pop_back();
            continue;
        }
        stack.back().expanded = true;
        Node& at = *stack.back().node;
        const Path here = stack.back().path;
        std::vector<std::pair<Node*, Path>> sources;
        if (std::shared_ptr<Connection> c = graph.driver(at, here)) {
            sources.emplace_back(c->dst.size() == here.size() ? c->srcNode : &at,
                                 c->dst.size() == here.size() ? c->src : c->dst);
        } else {
            for (const Attribute* a : at.type->affectingFamily(here.back().attr)) {
                Path input;
                if (at.pathTo(a->outermostArray(), input))
                    sources.emplace_back(&at, std::move(input));
            }
        }
        for (auto& [source, sourcePath] : sources) {
            Slot* slot = storage(*source, sourcePath, context);
            if (slot && slot->dirty && !slot->evaluating &&
                seen.insert(PlugKey(source, sourcePath.back().attr)).second)
                stack.push_back(Item{source, std::move(sourcePath), false});
        }
    }
    PullScope shallow(true);
    order.pop_back();
    for (const Item& item : order)
        pull(*item.node, item.path, context);
}

Slot* Evaluator::refresh(Node& node, const Path& path, const EvalContext& context, Slot* known) {
    return isStable(path) ? known : storage(node, path, context, false);
}

Slot* Evaluator::pull(Node& node, const Path& path, const EvalContext& context) {
    if (path.empty())
        return nullptr;
    if (!context.normal && !Graph::instance().isTimeDependent(node, path.back().attr)) {
        NormalContextScope normal;
        return pull(node, path, EvalContext());
    }
    Slot* slot = storage(node, path, context);
    if (!slot)
        return nullptr;
    if (slot->dirty) {
        if (slot->evaluating) {
            reportWarning(ZString("cycle on '") + plugText(node, path) + "' may not evaluate as expected");
        } else {
            if (PullScope::deep()) {
                slot->evaluating = true;
                settleUpstream(node, path, context);
                slot = refresh(node, path, context, slot);
                if (!slot)
                    return nullptr;
            }
            PullScope scope(false);
            slot->evaluating = true;
            slot = evaluate(node, path, context, slot);
            if (!slot)
                return nullptr;
            slot->evaluating = false;
        }
    }
    slot->propagated = false;
    return slot;
}

Slot* Evaluator::evaluate(Node& node, const Path& path, const EvalContext& context, Slot* slot) {
    std::shared_ptr<Connection> c = Graph::instance().driver(node, path);
    if (!c)
        return compute(node, path, context, slot);
    if (c->dst.size() == path.size()) {
        Slot* source = pull(*c->srcNode, c->src, context);
        slot = refresh(node, path, context, slot);
        if (source && slot) {
            transferValue(*slot, *path.back().attr, isArrayPath(path), *source, *c->src.back().attr,
                          isArrayPath(c->src));
            if (source->dirty)
                setDirtyTree(*slot, true);
        }
        return slot;
    }
    // Driven through a connected ancestor: its value brings ours.
    pull(node, c->dst, context);
    slot = refresh(node, path, context, slot);
    if (slot && slot->dirty)
        slot->dirty = false;
    return slot;
}

Slot* Evaluator::compute(Node& node, const Path& path, const EvalContext& context, Slot* slot) {
    // Try the plug, then (while they are dirty) its ancestors: nodes often
    // compute a compound or an array as a whole.
    ZStatus status = callCompute(node, path, context, slot);
    for (Path at = path; status.statusCode() == ZStatus::kUnknownParameter && !isTopmost(at);) {
        at = parentPath(at);
        Slot* ancestor = storage(node, at, context);
        if (!ancestor || !ancestor->dirty)
            break;
        status = callCompute(node, at, context, ancestor);
    }
    slot = refresh(node, path, context, slot);
    if (status.statusCode() == ZStatus::kUnknownParameter && slot)
        slot = useStoredValue(node, path, context, slot);
    return slot;
}

ZStatus Evaluator::callCompute(Node& node, const Path& path, const EvalContext& context, Slot* slot) {
    if (!node.user)
        return ZStatus::kUnknownParameter;
    // Whatever the node's code runs meanwhile must leave the graph standing.
    EvaluationScope computing(node.name);
    if (!node.pending.empty()) {
        ZEvaluationNode evaluationNode = EvaluationNodeAccess::make(&node);
        node.user->preEvaluation(context.asContext(), evaluationNode);
        if (context.normal)
            node.pending.clear();
    }
    Slot previous = *slot;
    const ZPlug plug = PlugAccess::make(node, path);
    EvalFrame frame{&node, &context};
    ZDataBlock block = BlockAccess::make(&frame);
    ZStatus status;
    try {
        status = node.user->compute(plug, block);
    } catch (...) {
        // A node's failure must not unwind through the graph.
        status = ZStatus::kFailure;
    }
    if (status.error() && status.statusCode() != ZStatus::kUnknownParameter) {
        if (Slot* now = refresh(node, path, context, slot)) {
            const bool evaluating = now->evaluating;
            *now = std::move(previous);
            now->evaluating = evaluating;
        }
        reportError(ZString("computing '") + plugText(node, path) + "' failed: " + status.errorString());
    } else if (!status.error() && node.attributeChangedCallbacks) {
        Callbacks::instance().attributeChanged(node, ZNodeMessage::kAttributeEval, plug, ZPlug());
    }
    return status;
}

Slot* Evaluator::useStoredValue(Node& node, const Path& path, const EvalContext& context, Slot* slot) {
    if (isArrayPath(path)) {
        std::vector<unsigned int> indices;
        for (const auto& element : slot->elements)
            indices.push_back(element.first);
        for (unsigned int index : indices) {
            Path element = path;
            element.back().index = static_cast<int>(index);
            pull(node, element, context);
        }
    } else {
        const Attribute& attribute = *path.back().attr;
        for (std::size_t i = 0; i < attribute.children.size(); ++i) {
            Path child = path;
            child.push_back(PathEntry{attribute.children[i].get(), static_cast<unsigned int>(i), -1});
            pull(node, child, context);
        }
    }
    slot = refresh(node, path, context, slot);
    if (slot)
        slot->dirty = false;
    return slot;
}

} // namespace oz
