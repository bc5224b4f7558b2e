#pragma once

#include <OpenZyvo/ZPxCommand.h>

namespace type {

// "assignShaderToType": binds one shading group to one object group of a
// mesh (-groupIdNode, -shaderGroup, -meshNode). The binding itself is still
// to come; until then the host refuses the call after checking its syntax.
class AssignShaderCommand : public ZPxCommand {
public:
    static constexpr const char* kCommandName = "assignShaderToType";

    static void* creator();
    static ZSyntax newSyntax();
};

} // namespace type
