#include "graph/PlugPath.h"

#include "graph/Attribute.h"

namespace oz {

const Attribute* leafAttribute(const Path& path) {
    return path.empty() ? nullptr : path.back().attr;
}

bool isElementPath(const Path& path) {
    return !path.empty() && path.back().index >= 0;
}

bool isArrayPath(const Path& path) {
    return !path.empty() && path.back().attr->flags.array && path.back().index < 0;
}

bool isFullySpecified(const Path& path) {
    for (std::size_t i = 0; i + 1 < path.size(); ++i)
        if (path[i].attr->flags.array && path[i].index < 0)
            return false;
    return true;
}

bool covers(const Path& outer, const Path& inner) {
    if (outer.size() > inner.size())
        return false;
    for (std::size_t i = 0; i < outer.size(); ++i) {
        if (outer[i].attr != inner[i].attr)
            return false;
        if (outer[i].index >= 0 && outer[i].index != inner[i].index)
            return false;
    }
    return true;
}

Path parentPath(const Path& path) {
    Path up = path;
    if (up.empty())
        return up;
    if (up.back().index >= 0)
        up.back().index = -1;
    else
        up.pop_back();
    return up;
}

ZString pathName(const Path& path, bool longNames, bool fullPath) {
    std::string out;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const PathEntry& e = path[i];
        const bool leaf = i + 1 == path.size();
        if (!leaf && !fullPath && e.index < 0)
            continue;
        if (!out.empty())
            out += '.';
        out += (longNames ? e.attr->longName : e.attr->shortName).asStdString();
        if (e.index >= 0) {
            out += '[';
            out += std::to_string(e.index);
            out += ']';
        }
    }
    return ZString(std::move(out));
}

} // namespace oz
