#include "data/Component.h"

#include <algorithm>
#include <functional>

namespace oz {

bool Component::contains(int32_t element) const {
    return std::binary_search(elements_.begin(), elements_.end(), element);
}

bool Component::containsAll(const Component& other) const {
    return kind_ == other.kind_ &&
           std::includes(elements_.begin(), elements_.end(), other.elements_.begin(), other.elements_.end());
}

void Component::add(int32_t element) {
    // Groups are mostly filled in ascending order; appending keeps that case linear.
    if (elements_.empty() || element > elements_.back()) {
        elements_.push_back(element);
        return;
    }
    const auto it = std::lower_bound(elements_.begin(), elements_.end(), element);
    if (*it != element)
        elements_.insert(it, element);
}

void Component::add(std::span<const int32_t> elements) {
    if (elements.empty())
        return;
    const auto middle = static_cast<std::ptrdiff_t>(elements_.size());
    elements_.insert(elements_.end(), elements.begin(), elements.end());
    // Lists are mostly handed over in order and without repeats (a solid's face groups hold half
    // a million ids), and one check for that costs far less than a sort and a sweep for repeats.
    const bool risingAfterOld = middle == 0 || elements_[middle] > elements_[middle - 1];
    if (risingAfterOld && std::adjacent_find(elements_.begin() + middle, elements_.end(),
                                             std::greater_equal<>()) == elements_.end())
        return;
    if (!std::is_sorted(elements_.begin() + middle, elements_.end()))
        std::sort(elements_.begin() + middle, elements_.end());
    if (middle > 0 && middle < std::ssize(elements_) && elements_[middle] < elements_[middle - 1])
        std::inplace_merge(elements_.begin(), elements_.begin() + middle, elements_.end());
    elements_.erase(std::unique(elements_.begin(), elements_.end()), elements_.end());
}

void Component::remove(std::span<const int32_t> elements) {
    std::vector<int32_t> gone(elements.begin(), elements.end());
    std::sort(gone.begin(), gone.end());
    std::erase_if(elements_, [&](int32_t e) { return std::binary_search(gone.begin(), gone.end(), e); });
}

} // namespace oz
