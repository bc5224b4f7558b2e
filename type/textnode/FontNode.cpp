#include "textnode/FontNode.h"

#include "plugin/ApiError.h"
#include "plugin/LegacyFileRead.h"

#include <OpenZyvo/ZMessage.h>

namespace type {

void* fontNode::creator() {
    return new fontNode;
}

fontNode::~fontNode() {
    // The host may already have dropped them with the node; removing an id
    // twice only fails quietly.
    ZMessage::removeCallbacks(m_callbackIds);
}

void fontNode::postConstructor() {
    if (legacy::isReadingFile())
        legacy::rememberNode(thisZObject());
    ZStatus status;
    const ZCallbackId id =
        ZNodeMessage::addAttributeChangedCallback(thisZObject(), attributeChanged, nullptr, &status);
    if (!status) {
        reportApiError(status, kSourceUnit);
        return;
    }
    m_callbackIds.append(id);
}

ZPxNode::SchedulingType fontNode::schedulingType() const {
    return kUntrusted;
}

} // namespace type
