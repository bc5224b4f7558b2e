#include "plugins/DrawOverrideTable.h"
#include "plugins/PluginScope.h"

#include <OpenZyvoRender/ZDrawRegistry.h>

namespace ZHWRender {

using oz::plugins::DrawOverrideTable;

ZStatus ZDrawRegistry::registerDrawOverrideCreator(const ZString& drawClassification,
                                                   const ZString& registrantId, DrawOverrideCreator creator) {
    return DrawOverrideTable::instance().add(drawClassification.asStdString(), registrantId.asStdString(),
                                             creator, oz::plugins::PluginScope::current());
}

ZStatus ZDrawRegistry::deregisterDrawOverrideCreator(const ZString& drawClassification,
                                                     const ZString& registrantId) {
    return DrawOverrideTable::instance().remove(drawClassification.asStdString(), registrantId.asStdString());
}

// Only draw overrides can be registered here, so whatever the registrant
// holds is one.
ZStatus ZDrawRegistry::deregisterGeometryOverrideCreator(const ZString& drawClassification,
                                                         const ZString& registrantId) {
    return DrawOverrideTable::instance().remove(drawClassification.asStdString(), registrantId.asStdString());
}

ZPxDrawOverride* ZDrawRegistry::createDrawOverride(const ZString& drawClassification, const ZObject& node) {
    const DrawOverrideCreator creator = DrawOverrideTable::instance().find(drawClassification.asStdString());
    return creator ? creator(node) : nullptr;
}

bool ZDrawRegistry::hasDrawOverride(const ZString& drawClassification) {
    return DrawOverrideTable::instance().find(drawClassification.asStdString()) != nullptr;
}

} // namespace ZHWRender
