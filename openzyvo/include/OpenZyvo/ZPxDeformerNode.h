#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZPxGeometryFilter.h>

// The base that deformers of plug-ins derive from. It adds nothing to ZPxGeometryFilter but a
// name: nodes of the deformer kind take their attributes and compute from there.
class OZ_API ZPxDeformerNode : public ZPxGeometryFilter {
public:
    ZPxDeformerNode() = default;
};
