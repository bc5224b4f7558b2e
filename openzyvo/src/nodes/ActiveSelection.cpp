#include "nodes/ActiveSelection.h"

namespace oz::nodes {

namespace {

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
}

} // namespace oz::nodes
