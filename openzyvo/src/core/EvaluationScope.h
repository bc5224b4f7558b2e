#pragma once

#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <string_view>

namespace oz {

// Open while a node's own code computes (compute, preEvaluation). Code run
// from there (a script, a command) must not free or replace what the
// evaluation is using: the node itself, the nodes upstream and downstream,
// their types, the scene. Operations that would are refused instead, each
// through refuseDuringEvaluation, so that the rule holds for every command
// and API call that reaches them.
class EvaluationScope {
public:
    // `node` names the node computing; it must outlive the scope.
    explicit EvaluationScope(const ZString& node);
    ~EvaluationScope();
    EvaluationScope(const EvaluationScope&) = delete;
    EvaluationScope& operator=(const EvaluationScope&) = delete;

    static bool active();

private:
    const ZString* m_previous;
};

// kSuccess outside any evaluation. Inside one, reports that `action` (as in
// "delete nodes") cannot be done while the innermost node computes, names
// how to do it afterwards, and fails.
ZStatus refuseDuringEvaluation(std::string_view action);

} // namespace oz
