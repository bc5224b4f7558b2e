#include "graph/PlugParse.h"

#include "graph/Node.h"

#include <charconv>

namespace oz {

namespace {

const Attribute* childNamed(const Attribute& parent, std::string_view name) {
    for (const auto& child : parent.children)
        if (child->longName.view() == name || child->shortName.view() == name)
            return child.get();
    return nullptr;
}

} // namespace

ZStatus parsePlugPath(const Node& node, std::string_view text, Path& path) {
    path.clear();
    if (text.empty())
        return ZStatus::kInvalidParameter;
    std::size_t at = 0;
    while (at <= text.size()) {
        const std::size_t dot = text.find('.', at);
        std::string_view segment =
            text.substr(at, dot == std::string_view::npos ? text.size() - at : dot - at);
        at = dot == std::string_view::npos ? text.size() + 1 : dot + 1;

        int index = -1;
        if (const std::size_t open = segment.find('['); open != std::string_view::npos) {
            if (segment.back() != ']')
                return ZStatus::kInvalidParameter;
            std::string_view digits = segment.substr(open + 1, segment.size() - open - 2);
            unsigned int value = 0;
            auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
            if (error != std::errc() || end != digits.data() + digits.size() || digits.empty() ||
                value > 0x7fffffffu)
                return ZStatus::kInvalidParameter;
            index = static_cast<int>(value);
            segment = segment.substr(0, open);
        }
        if (segment.empty())
            return ZStatus::kInvalidParameter;

        const Attribute* attribute = nullptr;
        if (path.empty()) {
            attribute = node.findAttribute(ZString(segment));
            if (!attribute || !node.pathTo(attribute, path))
                return ZStatus::kNotFound;
        } else {
            attribute = childNamed(*path.back().attr, segment);
            if (!attribute)
                return ZStatus::kNotFound;
            path.push_back(PathEntry{attribute, attribute->indexInParent, -1});
        }
        if (index >= 0) {
            if (!attribute->flags.array)
                return ZStatus::kInvalidParameter;
            path.back().index = index;
        }
    }
    return ZStatus::kSuccess;
}

} // namespace oz
