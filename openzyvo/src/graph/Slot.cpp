#include "graph/Slot.h"

#include "graph/Attribute.h"

namespace oz {

void initSlot(Slot& slot, const Attribute& attribute, bool asElement) {
    slot.dirty = true;
    if (attribute.flags.array && !asElement)
        return;
    slot.num = attribute.defaultValue;
    slot.data = attribute.defaultData ? attribute.defaultData->clone() : nullptr;
    slot.children.resize(attribute.children.size());
    for (std::size_t i = 0; i < attribute.children.size(); ++i)
        initSlot(slot.children[i], *attribute.children[i], false);
}

Slot makeSlot(const Attribute& attribute, bool asElement) {
    Slot slot;
    initSlot(slot, attribute, asElement);
    return slot;
}

namespace {

void transferInstance(Slot& dst, const Attribute& dstAttr, const Slot& src, const Attribute& srcAttr) {
    dst.num = src.num;
    dst.data = src.data;
    const std::size_t dstChildren = dstAttr.children.size(), srcChildren = srcAttr.children.size();
    if (dstChildren && srcChildren) {
        for (std::size_t i = 0;
             i < dstChildren && i < srcChildren && i < dst.children.size() && i < src.children.size(); ++i)
            transferValue(dst.children[i], *dstAttr.children[i], dstAttr.children[i]->flags.array,
                          src.children[i], *srcAttr.children[i], srcAttr.children[i]->flags.array);
    } else if (dstChildren) {
        for (std::size_t i = 0; i < dstChildren && i < dst.children.size() && i < src.num.size(); ++i)
            dst.children[i].num[0] = src.num[i];
    } else if (srcChildren) {
        for (std::size_t i = 0; i < srcChildren && i < src.children.size() && i < dst.num.size(); ++i)
            dst.num[i] = src.children[i].num[0];
    }
}

} // namespace

void transferValue(Slot& dst, const Attribute& dstAttr, bool dstIsArray, const Slot& src,
                   const Attribute& srcAttr, bool srcIsArray) {
    if (dstIsArray && srcIsArray) {
        dst.elements.clear();
        for (const auto& [index, element] : src.elements) {
            Slot& out = dst.elements[index];
            initSlot(out, dstAttr, true);
            transferInstance(out, dstAttr, element, srcAttr);
        }
    } else if (!dstIsArray && !srcIsArray) {
        transferInstance(dst, dstAttr, src, srcAttr);
    }
    setDirtyTree(dst, false);
}

void deepCopy(Slot& dst, const Slot& src) {
    dst.num = src.num;
    dst.data = src.data ? src.data->clone() : nullptr;
    dst.children.resize(src.children.size());
    for (std::size_t i = 0; i < src.children.size(); ++i)
        deepCopy(dst.children[i], src.children[i]);
    dst.elements.clear();
    for (const auto& [index, element] : src.elements)
        deepCopy(dst.elements[index], element);
}

void setDirtyTree(Slot& slot, bool dirty) {
    slot.dirty = dirty;
    slot.propagated = dirty;
    for (auto& child : slot.children)
        setDirtyTree(child, dirty);
    for (auto& [index, element] : slot.elements)
        setDirtyTree(element, dirty);
}

bool isQuiet(const Slot& slot) {
    if (!slot.dirty || !slot.propagated)
        return false;
    for (const auto& child : slot.children)
        if (!isQuiet(child))
            return false;
    for (const auto& [index, element] : slot.elements)
        if (!isQuiet(element))
            return false;
    return true;
}

} // namespace oz
