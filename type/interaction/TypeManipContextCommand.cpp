#include "interaction/TypeManipContextCommand.h"

namespace type {

void* typeManipContextCommand::creator() {
    return new typeManipContextCommand;
}

ZPxContext* typeManipContextCommand::makeObj() {
    return nullptr;
}

} // namespace type
