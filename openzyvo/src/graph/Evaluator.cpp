#include "graph/Evaluator.h"

#include "graph/BlockAccess.h"
#include "graph/Callbacks.h"
#include "graph/ContextState.h"
#include "graph/Graph.h"
#include "graph/Report.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZEvaluationNode.h>
#include <OpenZyvo/ZPlug.h>

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
    return context.cache->stores[&node];
}

Slot* Evaluator::storage(Node& node, const Path& path, const EvalContext& context, bool create) {
    return node.resolve(store(node, context), path, create);
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
            evaluate(node, path, context);
            slot = storage(node, path, context);
            if (!slot)
                return nullptr;
        }
    }
    slot->propagated = false;
    return slot;
}

void Evaluator::evaluate(Node& node, const Path& path, const EvalContext& context) {
    storage(node, path, context)->evaluating = true;
    if (const Connection* c = Graph::instance().driver(node, path)) {
        if (c->dst.size() == path.size()) {
            const Connection connection = *c;
            Slot* source = pull(*connection.srcNode, connection.src, context);
            Slot* target = storage(node, path, context);
            if (source && target) {
                transferValue(*target, *path.back().attr, isArrayPath(path), *source,
                              *connection.src.back().attr, isArrayPath(connection.src));
                if (source->dirty)
                    setDirtyTree(*target, true);
            }
        } else {
            // Driven through a connected ancestor: its value brings ours.
            const Path ancestor = c->dst;
            pull(node, ancestor, context);
            if (Slot* target = storage(node, path, context, false); target && target->evaluating)
                target->dirty = false;
        }
    } else {
        compute(node, path, context);
    }
    if (Slot* slot = storage(node, path, context, false))
        slot->evaluating = false;
}

void Evaluator::compute(Node& node, const Path& path, const EvalContext& context) {
    // Try the plug, then (while they are dirty) its ancestors: nodes often
    // compute a compound or an array as a whole.
    Path at = path;
    for (bool first = true;; first = false) {
        Slot* slot = storage(node, at, context);
        if (!first && (!slot || !slot->dirty))
            break;
        const ZStatus status = callCompute(node, at, context);
        if (status.statusCode() != ZStatus::kUnknownParameter)
            return;
        if (isTopmost(at))
            break;
        at = parentPath(at);
    }
    useStoredValue(node, path, context);
}

ZStatus Evaluator::callCompute(Node& node, const Path& path, const EvalContext& context) {
    if (!node.user)
        return ZStatus::kUnknownParameter;
    if (!node.pending.empty()) {
        ZEvaluationNode evaluationNode = EvaluationNodeAccess::make(&node);
        node.user->preEvaluation(context.asContext(), evaluationNode);
        if (context.normal)
            node.pending.clear();
    }
    Slot* slot = storage(node, path, context);
    Slot previous = *slot;
    const ZPlug plug = PlugAccess::make(node, path);
    EvalFrame frame{&node, &context};
    ZDataBlock block = BlockAccess::make(&frame);
    const ZStatus status = node.user->compute(plug, block);
    if (status.error() && status.statusCode() != ZStatus::kUnknownParameter) {
        if (Slot* now = storage(node, path, context)) {
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

void Evaluator::useStoredValue(Node& node, const Path& path, const EvalContext& context) {
    Slot* slot = storage(node, path, context);
    if (!slot)
        return;
    if (isArrayPath(path)) {
        std::vector<unsigned int> indices;
        for (const auto& [index, element] : slot->elements)
            indices.push_back(index);
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
    if (Slot* again = storage(node, path, context, false))
        again->dirty = false;
}

} // namespace oz
