#pragma once

#include <OpenZyvo/ZObject.h>
#include <optional>
#include <string>
#include <vector>

namespace oz {
class Attribute;
}

namespace oz::scene {

// A dynamic attribute as addAttr declares it and scene files write it:
//   addAttr -ln "weight" -sn "w" -at "double" -dv 0.5 -min 0 -max 1 -k true
// Compounds name how many children follow (-nc), and each child names its
// compound (-p). Numbers are in the user's units.
struct AttributeDeclaration {
    std::string longName;
    std::string shortName;
    std::string attributeType; // -at: "double", "enum", "compound"...
    std::string dataType;      // -dt: "string", "doubleArray"...
    std::optional<double> defaultValue;
    std::optional<double> minimum, maximum, softMinimum, softMaximum;
    std::string enumNames; // "Off:On" or "Low=1:High=5"
    std::optional<int> childCount;
    std::string parent;
    bool keyable = false;
    bool multi = false;
    bool hidden = false;
    bool usedAsColor = false;
};

// How many children the attribute waits for before it is complete: the
// count of a compound, 2 or 3 for a tuple of numbers ("double3") unless
// -nc 0 makes it a plain tuple, 0 for everything else.
int childrenNeeded(const AttributeDeclaration& declaration);

// Makes the attribute the declaration declares, a compound from `children`; false
// with `error` when the declaration declares none.
bool buildAttribute(const AttributeDeclaration& declaration, const std::vector<ZObject>& children,
                    ZObject& attribute, std::string& error);

// The declaration that makes `attribute` again; its children have declarations of their
// own that name it as their parent.
AttributeDeclaration describeAttribute(const Attribute& attribute);

// The addAttr flags of `declaration`, as scene files write them.
std::string addAttrFlags(const AttributeDeclaration& declaration);

} // namespace oz::scene
