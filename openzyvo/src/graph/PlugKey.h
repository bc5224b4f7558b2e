#pragma once

#include <cstddef>
#include <functional>
#include <unordered_set>
#include <utility>

namespace oz {

class Attribute;
class Node;

// A plug by its node and attribute alone, every element of an array plug alike: the unit the
// graph's walks remember once.
using PlugKey = std::pair<const Node*, const Attribute*>;

struct PlugKeyHash {
    std::size_t operator()(const PlugKey& key) const {
        return std::hash<const void*>()(key.first) * 31u ^ std::hash<const void*>()(key.second);
    }
};

using PlugKeySet = std::unordered_set<PlugKey, PlugKeyHash>;

} // namespace oz
