#pragma once

#include <OpenZyvo/ZFnAttribute.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZObjectArray.h>
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace typetest {

// The attributes `attribute` of `node` dirties, by name, sorted and joined
// with commas, as the golden attribute tables list them.
inline std::string affectedNames(const ZFnDependencyNode& node, const ZObject& attribute) {
    ZObjectArray affected;
    EXPECT_TRUE(node.getAffectedAttributes(attribute, affected));
    std::vector<std::string> names;
    for (const ZObject& output : affected)
        names.push_back(ZFnAttribute(output).name().asStdString());
    std::sort(names.begin(), names.end());
    std::string joined;
    for (const std::string& name : names)
        joined += (joined.empty() ? "" : ",") + name;
    return joined;
}

} // namespace typetest
