#include "plugins/RuntimeShutdown.h"

#include "commands/IdleQueue.h"
#include "plugins/PluginRegistry.h"
#include "scene/NewScene.h"

namespace oz::plugins {

ZStatus shutdownRuntime() {
    cmd::IdleQueue::instance().drain();
    cmd::IdleQueue::instance().clear();
    const ZStatus closed = scene::closeScene();
    const ZStatus unloaded = PluginRegistry::instance().unloadAll();
    return closed ? unloaded : closed;
}

} // namespace oz::plugins
