#include "extrude/VertexGroupIds.h"

#include <limits>
#include <unordered_set>

namespace type {

VertexGroupIds resolveVertexGroupIds(const std::vector<int>& requested, std::size_t characters,
                                     const std::function<bool(int)>& inUse) {
    VertexGroupIds result;
    if (requested.size() < characters)
        result.missing = static_cast<int>(characters - requested.size());
    std::unordered_set<int> taken;
    for (std::size_t k = 0; k < characters; ++k) {
        int id = k < requested.size() ? requested[k] : 0;
        while ((inUse(id) || taken.count(id)) && id < std::numeric_limits<int>::max())
            ++id;
        taken.insert(id);
        result.ids.push_back(id);
    }
    return result;
}

} // namespace type
