#pragma once

#include "ui/ViewCamera.h"

#include <OpenZyvoUI/ZPxContext.h>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace oz::ui {

// The host's tool side: the contexts the context commands made (it owns
// them), the current tool, the view's camera and the last click in the view.
// Used from the main thread only.
class ToolManager {
public:
    static ToolManager& instance();

    void adopt(const std::string& name, ZPxContext* context);
    void release(const std::string& name);

    // Puts the current tool away and sets up `name`; an empty name leaves no
    // tool current. kNotFound for a name no context has.
    ZStatus setTool(const std::string& name);
    const std::string& currentName() const { return m_current; }
    ZPxContext* current() const;
    bool has(const std::string& name) const { return m_contexts.count(name) != 0; }

    ViewCamera& camera() { return m_camera; }
    const std::optional<ViewRay>& lastClick() const { return m_lastClick; }
    void setLastClick(std::optional<ViewRay> click) { m_lastClick = std::move(click); }

private:
    ToolManager();

    std::map<std::string, std::unique_ptr<ZPxContext>> m_contexts;
    std::string m_current;
    ViewCamera m_camera;
    std::optional<ViewRay> m_lastClick;
};

} // namespace oz::ui
