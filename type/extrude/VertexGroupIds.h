#pragma once

#include <functional>
#include <vector>

namespace type {

struct VertexGroupIds {
    std::vector<int> ids; // one per character, as used
    int missing = 0;      // characters that had no requested id
};

// The object-group id of each character's vertex group: the id it asks for
// (0 when it asks for none), raised past every id already in use, the
// earlier characters' included.
VertexGroupIds resolveVertexGroupIds(const std::vector<int>& requested, std::size_t characters,
                                     const std::function<bool(int)>& inUse);

} // namespace type
