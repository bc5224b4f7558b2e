#pragma once

#include "ui/Manipulator.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvoUI/ZPxManipContainer.h>
#include <array>
#include <memory>
#include <vector>

namespace oz::ui {

using Triple = std::array<double, 3>;

// A plug's value as three numbers: the children of a compound of three, or
// one number repeated.
Triple plugTriple(const ZPlug& plug, ZStatus* status = nullptr);
// Adds to `modifier` the setting of `plug` to `value` (one number: its first).
ZStatus setPlugTriple(ZDGModifier& modifier, const ZPlug& plug, const Triple& value);

// What a container keeps: its children, every value they have, how each value
// is tied to plugs, and the plugs set from the values.
class ManipContainerState {
public:
    explicit ManipContainerState(ZPxManipContainer& owner)
        : m_owner(owner) {}
    ~ManipContainerState();

    struct Value {
        Triple value{0.0, 0.0, 0.0};
        Manipulator* manipulator = nullptr;
        ZPlug direct;
        ZPxManipContainer::plugToManipConversionCallback fromPlugs = nullptr;
    };
    struct PlugConversion {
        ZPlug plug;
        ZPxManipContainer::manipToPlugConversionCallback toPlug = nullptr;
    };

    ZObject addChild(ManipKind kind, const ZString& name);
    std::shared_ptr<Manipulator> child(ManipKind kind) const;
    const std::vector<std::shared_ptr<Manipulator>>& children() const { return m_children; }

    Value* value(unsigned int index);
    const Value* value(unsigned int index) const;
    ZStatus addPlugToManip(unsigned int index, ZPxManipContainer::plugToManipConversionCallback callback);
    unsigned int addManipToPlug(const ZPlug& plug, ZPxManipContainer::manipToPlugConversionCallback callback);

    // Every value tied to plugs takes their values now.
    ZStatus pullFromPlugs();
    // Adds to `modifier` every plug tied to the values, set from them;
    // plugs that already hold their value are left alone.
    ZStatus pushToPlugs(ZDGModifier& modifier);

    ZObject node;
    bool finished = false;

private:
    ZPxManipContainer& m_owner;
    std::vector<std::shared_ptr<Manipulator>> m_children;
    std::vector<Value> m_values;
    std::vector<PlugConversion> m_plugConversions;
};

struct ManipContainerAccess {
    static ManipContainerState& state(ZPxManipContainer& container) { return *container.m_state; }
    static const ManipContainerState& state(const ZPxManipContainer& container) { return *container.m_state; }
};

} // namespace oz::ui
