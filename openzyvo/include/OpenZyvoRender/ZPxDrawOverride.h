#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZBoundingBox.h>
#include <OpenZyvo/ZDagPath.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvoRender/ZUserData.h>

namespace ZHWRender {

// Base of a viewport draw override: the object that tells the viewport how to
// draw the nodes of one draw classification. The registry's creator makes one
// per drawn node; the viewport owns it.
class OZ_API ZPxDrawOverride {
public:
    virtual ~ZPxDrawOverride();
    ZPxDrawOverride(const ZPxDrawOverride&) = delete;
    ZPxDrawOverride& operator=(const ZPxDrawOverride&) = delete;

    // Reads from the graph what drawing the object at `objPath` needs.
    // `oldData` is what the previous call returned for the same object (or
    // null); an override may update and return it, or return new data, and
    // the viewport then deletes the old. Called on the main thread.
    virtual ZUserData* prepareForDraw(const ZDagPath& objPath, ZUserData* oldData) = 0;

    // Whether boundingBox() bounds what is drawn; unbounded objects are never
    // culled.
    virtual bool isBounded(const ZDagPath& objPath) const;
    // In the object's own space.
    virtual ZBoundingBox boundingBox(const ZDagPath& objPath) const;

    // The node this override draws.
    ZObject node() const { return m_node; }

protected:
    explicit ZPxDrawOverride(const ZObject& node)
        : m_node(node) {}

private:
    ZObject m_node;
};

} // namespace ZHWRender
