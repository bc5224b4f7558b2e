#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>

namespace ZHWRender {

class ZPxDrawOverride;

// Viewport overrides by draw classification ("drawdb/geometry/..."), the
// classification a node type is registered with. Creators are keyed by
// (classification, registrant id); a classification may have several
// registrants, and the latest registered one draws. Registered while a
// plug-in initialises, a creator belongs to that plug-in and goes when it
// unloads.
class OZ_API ZDrawRegistry {
public:
    using DrawOverrideCreator = ZPxDrawOverride* (*)(const ZObject& node);

    // Fails with kInvalidParameter for an empty classification or id, a
    // missing creator, or a (classification, id) already registered.
    static ZStatus registerDrawOverrideCreator(const ZString& drawClassification, const ZString& registrantId,
                                               DrawOverrideCreator creator);
    // kNotFound when the registrant holds no draw override there.
    static ZStatus deregisterDrawOverrideCreator(const ZString& drawClassification,
                                                 const ZString& registrantId);
    // Removes whatever override the registrant holds for the classification;
    // kNotFound when it holds none.
    static ZStatus deregisterGeometryOverrideCreator(const ZString& drawClassification,
                                                     const ZString& registrantId);

    // A new override for `node` from the creator that draws the
    // classification, or null when there is none; the caller owns it.
    static ZPxDrawOverride* createDrawOverride(const ZString& drawClassification, const ZObject& node);
    static bool hasDrawOverride(const ZString& drawClassification);
};

} // namespace ZHWRender
