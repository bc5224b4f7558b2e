#pragma once

#include <OpenZyvo/ZSelectionList.h>

// The host's active selection: what the `select` command sets and ZGlobal::getActiveSelectionList
// reads. Used from the main thread only.
namespace oz::nodes {

ZSelectionList activeSelection();
void setActiveSelection(const ZSelectionList& selection);

} // namespace oz::nodes
