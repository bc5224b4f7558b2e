#pragma once

#include <OpenZyvo/ZPxNode.h>

namespace oz::anim {

// The scene's clock, "time1": `outTime` is the time being evaluated, the
// current time in the normal context and a context's own time otherwise.
class TimeNode : public ZPxNode {
public:
    static constexpr const char* kTypeName = "time";
    static constexpr const char* kSceneNodeName = "time1";
    static constexpr unsigned int kId = 0x54494d45u;
    static ZObject outTime;

    static ZPxNode* creator() { return new TimeNode; }
    static ZStatus initialize();

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;

    // The scene's time node, made when the scene has none yet.
    static ZObject sceneNode(ZStatus* status = nullptr);
};

} // namespace oz::anim
