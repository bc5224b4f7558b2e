#pragma once

#include <OpenZyvo/ZPxContextCommand.h>

namespace type {

// "typeManipContextCommand": makes the type manipulator tool, which picks the
// character, word or line to edit and attaches the typeManip manipulator.
class typeManipContextCommand : public ZPxContextCommand {
public:
    static constexpr const char* kCommandName = "typeManipContextCommand";

    static void* creator();

    ZPxContext* makeObj() override;
};

} // namespace type
