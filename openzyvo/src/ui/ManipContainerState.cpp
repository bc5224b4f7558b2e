#include "ui/ManipContainerState.h"

#include <cmath>

namespace oz::ui {

unsigned int valueCount(ManipKind kind) {
    return kind == ManipKind::FreePointTriad ? 1 : 2;
}

Triple plugTriple(const ZPlug& plug, ZStatus* status) {
    ZStatus result;
    Triple value{0.0, 0.0, 0.0};
    if (plug.numChildren() == 3) {
        for (unsigned int i = 0; i < 3 && result; ++i)
            value[i] = plug.child(i).asDouble(&result);
    } else {
        value[0] = value[1] = value[2] = plug.asDouble(&result);
    }
    if (status)
        *status = result;
    return value;
}

ZStatus setPlugTriple(ZDGModifier& modifier, const ZPlug& plug, const Triple& value) {
    if (plug.numChildren() != 3)
        return modifier.newPlugValueDouble(plug, value[0]);
    for (unsigned int i = 0; i < 3; ++i)
        if (const ZStatus status = modifier.newPlugValueDouble(plug.child(i), value[i]); !status)
            return status;
    return ZStatus::kSuccess;
}

ManipContainerState::~ManipContainerState() {
    for (const auto& child : m_children)
        child->container = nullptr;
}

ZObject ManipContainerState::addChild(ManipKind kind, const ZString& name) {
    auto child = std::make_shared<Manipulator>(kind, name, this, static_cast<unsigned int>(m_values.size()));
    for (unsigned int i = 0; i < valueCount(kind); ++i)
        m_values.push_back(Value{{0.0, 0.0, 0.0}, child.get(), {}, nullptr});
    // A scale starts at one.
    if (kind == ManipKind::Scale)
        m_values[child->firstValue].value = {1.0, 1.0, 1.0};
    m_children.push_back(child);
    return ObjectAccess::wrap(child);
}

std::shared_ptr<Manipulator> ManipContainerState::child(ManipKind kind) const {
    for (const auto& candidate : m_children)
        if (candidate->kind == kind)
            return candidate;
    return nullptr;
}

ManipContainerState::Value* ManipContainerState::value(unsigned int index) {
    return index < m_values.size() ? &m_values[index] : nullptr;
}

const ManipContainerState::Value* ManipContainerState::value(unsigned int index) const {
    return index < m_values.size() ? &m_values[index] : nullptr;
}

ZStatus ManipContainerState::addPlugToManip(unsigned int index,
                                            ZPxManipContainer::plugToManipConversionCallback callback) {
    Value* target = value(index);
    if (!target || !callback)
        return ZStatus::kInvalidParameter;
    target->fromPlugs = callback;
    return ZStatus::kSuccess;
}

unsigned int ManipContainerState::addManipToPlug(const ZPlug& plug,
                                                 ZPxManipContainer::manipToPlugConversionCallback callback) {
    m_plugConversions.push_back({plug, callback});
    return static_cast<unsigned int>(m_plugConversions.size() - 1);
}

ZStatus ManipContainerState::pullFromPlugs() {
    for (unsigned int i = 0; i < m_values.size(); ++i) {
        Value& entry = m_values[i];
        if (entry.fromPlugs) {
            const ZManipData data = (m_owner.*entry.fromPlugs)(i);
            if (data.isSimple())
                entry.value = {data.asDouble(), data.asDouble(), data.asDouble()};
            else if (data.count() == 3)
                entry.value = {data.asVector().x, data.asVector().y, data.asVector().z};
        } else if (!entry.direct.isNull()) {
            ZStatus status;
            const Triple value = plugTriple(entry.direct, &status);
            if (!status)
                return status;
            entry.value = value;
        }
    }
    return ZStatus::kSuccess;
}

namespace {

bool holds(const ZPlug& plug, const Triple& value) {
    ZStatus status;
    const Triple current = plugTriple(plug, &status);
    if (!status)
        return false;
    const unsigned int count = plug.numChildren() == 3 ? 3 : 1;
    for (unsigned int i = 0; i < count; ++i)
        if (current[i] != value[i])
            return false;
    return true;
}

} // namespace

ZStatus ManipContainerState::pushToPlugs(ZDGModifier& modifier) {
    for (const Value& entry : m_values) {
        // A value placed by a conversion only follows its plugs.
        if (entry.direct.isNull() || entry.fromPlugs || holds(entry.direct, entry.value))
            continue;
        if (const ZStatus status = setPlugTriple(modifier, entry.direct, entry.value); !status)
            return status;
    }
    for (unsigned int i = 0; i < m_plugConversions.size(); ++i) {
        const PlugConversion& conversion = m_plugConversions[i];
        const ZManipData data = (m_owner.*conversion.toPlug)(i);
        if (data.count() == 0)
            continue;
        const Triple value = data.isSimple()
                                 ? Triple{data.asDouble(), data.asDouble(), data.asDouble()}
                                 : Triple{data.asVector().x, data.asVector().y, data.asVector().z};
        if (holds(conversion.plug, value))
            continue;
        if (const ZStatus status = setPlugTriple(modifier, conversion.plug, value); !status)
            return status;
    }
    return ZStatus::kSuccess;
}

} // namespace oz::ui
