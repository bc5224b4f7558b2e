#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZBoundingBox.h>
#include <OpenZyvo/ZPxNode.h>

// Base of locators: DAG nodes that are drawn in the viewport but have no geometry of their own.
// They register with the locator kind and live under a transform like any shape.
class OZ_API ZPxLocatorNode : public ZPxNode {
public:
    ZPxLocatorNode();
    ~ZPxLocatorNode() override;

    // Whether boundingBox() is meaningful; an unbounded locator is left out of framing.
    virtual bool isBounded() const;
    // The extent of what the locator draws, in its own space.
    virtual ZBoundingBox boundingBox() const;
};
