#pragma once

#include <OpenZyvo/ZPxNode.h>

namespace oz::nodes {

// The simplest surface shader: a matte surface of one colour, `outColor` = `color`.
class LambertNode : public ZPxNode {
public:
    static constexpr const char* kTypeName = "lambert";
    static constexpr unsigned int kId = 0x4c414d42u; // "LAMB"

    static ZObject color, outColor;

    static ZPxNode* creator() { return new LambertNode; }
    static ZStatus initialize();

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
};

} // namespace oz::nodes
