#include "shading/AssignShaderCommand.h"

namespace type {

void* AssignShaderCommand::creator() {
    return new AssignShaderCommand;
}

ZSyntax AssignShaderCommand::newSyntax() {
    ZSyntax syntax;
    syntax.addFlag("-gr", "-groupIdNode", ZSyntax::kString);
    syntax.addFlag("-sg", "-shaderGroup", ZSyntax::kString);
    syntax.addFlag("-me", "-meshNode", ZSyntax::kString);
    return syntax;
}

} // namespace type
