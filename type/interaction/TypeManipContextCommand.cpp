#include "interaction/TypeManipContextCommand.h"

#include "interaction/TypeManipContext.h"

namespace type {

void* typeManipContextCommand::creator() {
    return new typeManipContextCommand;
}

ZPxContext* typeManipContextCommand::makeObj() {
    return new typeManipContext;
}

} // namespace type
