#include "core/EvaluationScope.h"

#include <OpenZyvo/ZGlobal.h>
#include <atomic>

namespace oz {

namespace {

// Counted for every thread: a command from any thread must see that an
// evaluation is under way. The node computing is known per thread.
std::atomic<int> depth{0};
thread_local const ZString* innermost = nullptr;

} // namespace

EvaluationScope::EvaluationScope(const ZString& node)
    : m_previous(innermost) {
    innermost = &node;
    ++depth;
}

EvaluationScope::~EvaluationScope() {
    --depth;
    innermost = m_previous;
}

bool EvaluationScope::active() {
    return depth.load() > 0;
}

ZStatus refuseDuringEvaluation(std::string_view action) {
    if (!EvaluationScope::active())
        return ZStatus::kSuccess;
    const ZString node = innermost ? ZString("'") + *innermost + "'" : ZString("a node");
    ZGlobal::displayError(ZString("Cannot ") + ZString(action) + " while " + node +
                          " is being computed; run it after the evaluation with evalDeferred");
    return ZStatus::kFailure;
}

} // namespace oz
