#include "data/Component.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>

namespace oz {

std::vector<int32_t>& Component::writable() {
    if (elements_.use_count() > 1)
        elements_ = std::make_shared<std::vector<int32_t>>(*elements_);
    return *elements_;
}

bool Component::contains(int32_t element) const {
    return std::binary_search(elements().begin(), elements().end(), element);
}

bool Component::containsAll(const Component& other) const {
    return kind_ == other.kind_ && std::includes(elements().begin(), elements().end(),
                                                 other.elements().begin(), other.elements().end());
}

void Component::add(int32_t element) {
    std::vector<int32_t>& members = writable();
    // Groups are mostly filled in ascending order; appending keeps that case linear.
    if (members.empty() || element > members.back()) {
        members.push_back(element);
        return;
    }
    const auto it = std::lower_bound(members.begin(), members.end(), element);
    if (*it != element)
        members.insert(it, element);
}

void Component::add(std::span<const int32_t> elements) {
    if (elements.empty())
        return;
    // Lists are mostly handed over in order and without repeats (a solid's face groups hold half
    // a million ids), and one check for that costs far less than a sort and a sweep for repeats.
    const bool rising =
        std::adjacent_find(elements.begin(), elements.end(), std::greater_equal<>()) == elements.end();
    const std::vector<int32_t>& held = this->elements();
    if (rising && (held.empty() || elements.front() > held.back())) {
        std::vector<int32_t>& members = writable();
        members.insert(members.end(), elements.begin(), elements.end());
        return;
    }
    if (rising) {
        // Two sets in order (one group takes a solid's cap, bevel and wall faces when they share
        // an id): one pass merges them and drops the ids both hold.
        auto merged = std::make_shared<std::vector<int32_t>>();
        merged->reserve(held.size() + elements.size());
        std::set_union(held.begin(), held.end(), elements.begin(), elements.end(),
                       std::back_inserter(*merged));
        elements_ = std::move(merged);
        return;
    }
    std::vector<int32_t>& members = writable();
    const auto middle = static_cast<std::ptrdiff_t>(members.size());
    members.insert(members.end(), elements.begin(), elements.end());
    std::sort(members.begin() + middle, members.end());
    if (middle > 0 && members[middle] < members[middle - 1])
        std::inplace_merge(members.begin(), members.begin() + middle, members.end());
    members.erase(std::unique(members.begin(), members.end()), members.end());
}

void Component::remove(std::span<const int32_t> elements) {
    std::vector<int32_t>& members = writable();
    std::vector<int32_t> gone(elements.begin(), elements.end());
    std::sort(gone.begin(), gone.end());
    std::erase_if(members, [&](int32_t e) { return std::binary_search(gone.begin(), gone.end(), e); });
}

} // namespace oz
