#pragma once

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZPxCommand.h>

namespace type {

// "assignShaderToType": binds one shading group to one object group of a
// mesh (-groupIdNode, -shaderGroup, -meshNode), wiring the three nodes the
// way a per-face material assignment is wired, so that the faces of the
// group the groupId node names render with that shading group. All four
// connections are one graph edit, undone and redone as a whole.
class AssignShaderCommand : public ZPxCommand {
public:
    static constexpr const char* kCommandName = "assignShaderToType";

    static void* creator();
    static ZSyntax newSyntax();

    ZStatus doIt(const ZArgList& args) override;
    ZStatus undoIt() override;
    ZStatus redoIt() override;
    bool isUndoable() const override;
    // The command reads its own arguments, so that a list that does not fit
    // is answered with the command's own message.
    bool hasSyntax() const override;

private:
    ZDGModifier m_modifier;
};

} // namespace type
