#pragma once

#include "core/Object.h"
#include "data/Data.h"

#include <OpenZyvo/ZFnData.h>
#include <OpenZyvo/ZFnNumericData.h>
#include <OpenZyvo/ZFnUnitAttribute.h>
#include <OpenZyvo/ZString.h>
#include <array>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace oz {

// One attribute: its kind, names, flags, default and range. Static attributes
// are shared by every node of the types that carry them; a dynamic one
// belongs to one node. Once added to a type or a node its structure (children,
// kind) is frozen; flags stay editable.
class Attribute final : public Object {
public:
    enum class Kind { Numeric, Unit, Enum, Typed, Compound, Message };

    struct Range {
        bool set = false;
        std::array<double, 4> value{};
    };

    struct Flags {
        bool readable = true;
        bool writable = true;
        bool connectable = true;
        bool storable = true;
        bool cached = true;
        bool keyable = false;
        bool hidden = false;
        bool array = false;
        bool indexMatters = true;
        bool usesArrayDataBuilder = false;
        bool channelBox = false;
        bool usedAsColor = false;
    };

    Attribute(Kind kind, ZString longName, ZString shortName);

    ZFn::Type apiType() const override;
    bool hasFn(ZFn::Type type) const override;

    bool isCompound() const { return !children.empty() || kind == Kind::Compound; }
    // Number of numbers in a leaf value (1 for scalars, 2-4 for tuples, 0 for
    // values that are not numbers).
    unsigned int componentCount() const;
    bool isNumberLike() const { return kind == Kind::Numeric || kind == Kind::Unit || kind == Kind::Enum; }
    bool isIntegral() const;
    bool isFloat() const;
    bool hasField(short value) const;

    const Attribute* root() const;
    // This attribute or the nearest ancestor that is an array.
    const Attribute* outermostArray() const;
    bool hasArrayAncestor() const;
    bool isAncestorOf(const Attribute* other) const;
    // Calls f(attribute) on this attribute and every descendant, parents first.
    template <typename F> void visit(F&& f) const {
        f(this);
        for (const auto& child : children)
            child->visit(f);
    }
    void setFrozen();
    void setDynamic();

    Kind kind;
    ZString longName;
    ZString shortName;
    ZFnNumericData::Type numericType = ZFnNumericData::kInvalid;
    ZFnUnitAttribute::Type unitType = ZFnUnitAttribute::kInvalid;
    ZFnData::Type dataType = ZFnData::kInvalid;
    std::shared_ptr<Data> defaultData;
    std::array<double, 4> defaultValue{};
    Range min, max, softMin, softMax;
    std::vector<std::pair<ZString, short>> fields;
    std::vector<std::shared_ptr<Attribute>> children;
    Attribute* parent = nullptr;
    unsigned int indexInParent = 0;
    Flags flags;
    bool dynamic = false;
    bool curve = false;
    // Structure frozen: added to a type or a node, or a child of one that is.
    bool frozen = false;
    // Owned as a dynamic attribute by a node.
    bool attachedToNode = false;

    // Where this attribute sat in the node type that last asked, and what
    // dirtying it reaches there: the graph asks both for every plug it
    // dirties or reads, mostly on one type at a time.
    struct TypeLookup {
        const void* type = nullptr;
        unsigned int rootSlot = 0;
        const void* targetsType = nullptr;
        std::uint64_t targetsVersion = 0;
        const std::vector<const Attribute*>* targets = nullptr;
    };
    mutable TypeLookup lookup;
};

// The attribute a ZObject refers to, or null.
Attribute* attributeOf(const ZObject& object);
std::shared_ptr<Attribute> sharedAttributeOf(const ZObject& object);
ZObject wrapAttribute(const Attribute* attribute);

} // namespace oz
