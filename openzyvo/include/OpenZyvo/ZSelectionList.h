#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <memory>

class ZDagPath;
class ZPlug;
class ZStringArray;

namespace oz {
struct SelectionItems;
}

// An ordered list of nodes, DAG paths and plugs, without repeats: what commands work on and what
// the host keeps as its active selection. Items whose nodes were deleted drop out of the list.
class OZ_API ZSelectionList {
public:
    ZSelectionList();
    ~ZSelectionList();
    ZSelectionList(const ZSelectionList& other);
    ZSelectionList& operator=(const ZSelectionList& other);

    // Adds what `pattern` names: a node ("pCube1"), every node whose name matches a pattern with
    // '*' (any run of characters) and '?' (one character), a DAG path ("|group1|pCube1"), or a
    // plug ("pCube1.translateX", "mesh1.instObjGroups[0].objectGroups[1]"). Fails with kNotFound,
    // adding nothing, when nothing matches.
    ZStatus add(const ZString& pattern);
    ZStatus add(const ZObject& node);
    ZStatus add(const ZDagPath& path);
    ZStatus add(const ZPlug& plug);

    unsigned int length(ZStatus* status = nullptr) const;
    bool isEmpty(ZStatus* status = nullptr) const;
    // Whether the node is an item of its own (not only the node of a plug item).
    bool hasItem(const ZObject& node, ZStatus* status = nullptr) const;

    // The node of the item (of a plug item, the plug's node).
    ZStatus getDependNode(unsigned int index, ZObject& node) const;
    // The path of the item's node; fails for nodes outside the DAG.
    ZStatus getDagPath(unsigned int index, ZDagPath& path) const;
    // The plug of a plug item; fails for the other items.
    ZStatus getPlug(unsigned int index, ZPlug& plug) const;
    // "|group1|pCube1" for DAG nodes, "time1" for other nodes, "pCube1.translateX" for plugs.
    ZStatus getSelectionStrings(ZStringArray& strings) const;

    ZStatus remove(unsigned int index);
    ZStatus clear();
    // Appends the items of `other` that this list does not hold yet.
    ZStatus merge(const ZSelectionList& other);

private:
    std::unique_ptr<oz::SelectionItems> m_items;
};
