#include "textnode/FontNode.h"

#include "plugin/ApiError.h"
#include "plugin/LegacyFileRead.h"

#include <OpenZyvo/ZMessage.h>
#include <OpenZyvo/ZPlug.h>

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

// A new value of an adjust attribute is an edit to store; a new mode or
// element alone is not, or its old values would land on the new element.
ZStatus fontNode::setDependentsDirty(const ZPlug& plug, ZPlugArray&) {
    const ZPlug whole = plug.isChild() ? plug.parent() : plug;
    if (whole == positionAdjust || whole == rotationAdjust || whole == scaleAdjust)
        m_compute.adjustmentEdited();
    return ZStatus::kSuccess;
}

ZPxNode::SchedulingType fontNode::schedulingType() const {
    return kUntrusted;
}

} // namespace type
