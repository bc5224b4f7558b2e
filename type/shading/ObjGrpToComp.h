#pragma once

#include <OpenZyvo/ZPxNode.h>

namespace type {

// The "objectGrpToComp" node: passes a mesh through and publishes its object
// groups as component lists. Its attributes are still to come.
class objGrpToComp : public ZPxNode {
public:
    static constexpr unsigned int kTypeId = 0x123C02;
    static constexpr const char* kTypeName = "objectGrpToComp";

    static void* creator();
    static ZStatus initialize();
};

} // namespace type
