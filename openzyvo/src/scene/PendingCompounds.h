#pragma once

#include "scene/AttributeDeclaration.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace oz {
class Node;
}

namespace oz::scene {

// A compound declared by addAttr whose children are still being declared,
// with the children declared so far (complete ones, compounds among them
// with their own children).
struct PendingAttribute {
    AttributeDeclaration declaration;
    std::vector<PendingAttribute> children;
};

// The compounds addAttr is still collecting children for, per node. A
// compound joins its node once its last child is declared; until then the
// node does not have it.
class PendingCompounds {
public:
    static PendingCompounds& instance();

    // The open compounds of a node, to keep and put back around an edit.
    std::vector<PendingAttribute> openOn(const Node& node) const;
    void setOpenOn(const Node& node, std::vector<PendingAttribute> open);

    // Whether `name` is taken by an open compound of the node or one of
    // the children declared for them.
    bool declares(const Node& node, const std::string& name) const;

    // Adds a declaration. One that needs children opens a compound; one
    // that completes its compound closes it. Returns the top-level
    // attribute that became complete, if any, in `complete`; false with
    // `error` when the parent named is not an open compound.
    bool declare(const Node& node, const AttributeDeclaration& declaration,
                 std::optional<PendingAttribute>& complete, std::string& error);

    // The compounds left open, as (node name, compound name).
    std::vector<std::pair<std::string, std::string>> unfinished() const;
    void clear();

private:
    PendingCompounds() = default;
    struct Entry {
        std::weak_ptr<Node> node;
        std::vector<PendingAttribute> open;
    };
    Entry* find(const Node& node);
    const Entry* find(const Node& node) const;
    std::vector<Entry> m_entries;
};

// Makes the attribute of a complete declaration with all its children.
bool buildPending(const PendingAttribute& pending, ZObject& attribute, std::string& error);

} // namespace oz::scene
