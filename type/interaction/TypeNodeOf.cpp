#include "interaction/TypeNodeOf.h"

#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPlugArray.h>

namespace type {

ZObject typeNodeOf(const ZObject& object) {
    if (object.isNull() || !object.hasFn(ZFn::kDependencyNode))
        return {};
    ZStatus status;
    const ZFnDependencyNode node(object, &status);
    const ZPlug message = node.findPlug("message", true, &status);
    if (!status)
        return {};
    ZPlugArray connected;
    message.connectedTo(connected, false, true, &status);
    for (unsigned int i = 0; i < connected.length(); ++i) {
        const ZObject other = connected[i].node();
        if (ZFnDependencyNode(other).typeName() == "type")
            return other;
    }
    return {};
}

} // namespace type
