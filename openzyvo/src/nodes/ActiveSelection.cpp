#include "nodes/ActiveSelection.h"

#include "graph/Callbacks.h"

#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZModelMessage.h>

namespace oz::nodes {

namespace {

// Model messages travel with the scene messages, under numbers of their own.
constexpr int kModelMessageBase = 0x10000;

ZSelectionList& active() {
    static ZSelectionList list;
    return list;
}

} // namespace

ZSelectionList activeSelection() {
    return active();
}

void setActiveSelection(const ZSelectionList& selection) {
    active() = selection;
    Callbacks::instance().scene(kModelMessageBase + ZModelMessage::kActiveListModified, nullptr);
}

} // namespace oz::nodes

ZStatus ZGlobal::getActiveSelectionList(ZSelectionList& list) {
    list = oz::nodes::activeSelection();
    return ZStatus::kSuccess;
}

ZCallbackId ZModelMessage::addCallback(Message message, Function function, void* clientData,
                                       ZStatus* status) {
    const bool usable = function && message >= 0 && message < kLast;
    if (status)
        *status = usable ? ZStatus::kSuccess : ZStatus::kInvalidParameter;
    return usable ? oz::Callbacks::instance().addSceneCallback(oz::nodes::kModelMessageBase + message,
                                                               function, clientData)
                  : 0;
}
