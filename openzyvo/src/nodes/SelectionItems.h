#pragma once

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZPlug.h>
#include <vector>

namespace oz {

// One entry of a selection list: a node, or a plug when `plug` is set.
struct SelectionItem {
    ZObject node;
    ZPlug plug;

    bool isPlug() const { return !plug.isNull(); }
    // The node still exists (a plug item: and its attribute too).
    bool isLive() const;
    friend bool operator==(const SelectionItem& a, const SelectionItem& b) {
        return a.node == b.node && (a.isPlug() ? b.isPlug() && a.plug == b.plug : !b.isPlug());
    }
};

struct SelectionItems {
    std::vector<SelectionItem> items;

    // Drops the items whose nodes were deleted.
    void prune();
    // Appends `item` unless it is already there.
    void append(const SelectionItem& item);
};

} // namespace oz
