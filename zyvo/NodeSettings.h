#pragma once

#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZPlug.h>
#include <optional>
#include <string>

namespace zyvo {

// Sets attributes of one node in turn; the first that fails is shown as an
// error naming the node and the attribute, and the rest are left alone.
class NodeSettings {
public:
    explicit NodeSettings(const ZObject& node)
        : m_node(node) {}

    template <typename Value> void set(const char* attribute, const Value& value) {
        if (!m_status)
            return;
        ZStatus status;
        ZPlug plug = m_node.findPlug(attribute, true, &status);
        if (status)
            status = plug.setValue(value);
        if (!status) {
            ZGlobal::displayError(ZString("Cannot set " + m_node.name().asStdString() + "." + attribute +
                                          ": " + status.errorString().asStdString()));
            m_status = status;
        }
    }

    template <typename Value> void set(const char* attribute, const std::optional<Value>& value) {
        if (value)
            set(attribute, *value);
    }

    ZStatus status() const { return m_status; }

private:
    ZFnDependencyNode m_node;
    ZStatus m_status;
};

} // namespace zyvo
