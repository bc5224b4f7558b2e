#pragma once

#include "graph/Evaluator.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZEvaluationNode.h>

namespace oz {

struct BlockAccess {
    static ZDataBlock make(EvalFrame* frame) { return ZDataBlock(frame); }
    static EvalFrame* frame(const ZDataBlock& block) { return block.m_frame; }
};

struct EvaluationNodeAccess {
    static ZEvaluationNode make(Node* node) { return ZEvaluationNode(node); }
    static Node* node(const ZEvaluationNode& evaluationNode) { return evaluationNode.m_node; }
};

} // namespace oz
