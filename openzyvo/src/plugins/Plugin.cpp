#include "plugins/Plugin.h"

namespace oz::plugins {

Plugin* loadedPlugin(const ZObject& object) {
    Plugin* plugin = ObjectAccess::as<Plugin>(object);
    return plugin && plugin->loaded ? plugin : nullptr;
}

} // namespace oz::plugins
