#pragma once

#include "core/SmallVector.h"

#include <OpenZyvo/ZString.h>

namespace oz {

class Attribute;

// One step from a node down to a plug: an attribute, where its slot sits in
// its parent (the root slot on the node, or the child position), and the
// element index when the attribute is an array (-1 for the whole array, or
// for attributes that are not arrays).
struct PathEntry {
    const Attribute* attr = nullptr;
    unsigned int slot = 0;
    int index = -1;

    friend bool operator==(const PathEntry& a, const PathEntry& b) {
        return a.attr == b.attr && a.index == b.index;
    }
};

using Path = SmallVector<PathEntry, 4>;

const Attribute* leafAttribute(const Path& path);
// The path names an element of an array (its last step has an index).
bool isElementPath(const Path& path);
bool isArrayPath(const Path& path);
// Every array step above the leaf has an element index.
bool isFullySpecified(const Path& path);
// `outer` is `inner` or contains it: a whole array contains its elements, a
// compound its children.
bool covers(const Path& outer, const Path& inner);
inline bool related(const Path& a, const Path& b) {
    return covers(a, b) || covers(b, a);
}
// The plug one step up: the array of an element, else the parent compound.
Path parentPath(const Path& path);

// "a[1].b" of the path, in long or short names. Without the full path, steps
// above the leaf appear only when they carry an element index.
ZString pathName(const Path& path, bool longNames, bool fullPath);

} // namespace oz
