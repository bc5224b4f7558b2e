"""A complete, wired SVG object."""

import zyvo.cmds as cmds

from zyvo.app.type.createText import addMaterials


def typeCreateSvg():
    """Creates an SVG object and returns the names of its nodes: the
    svgToPoly node, the typeExtrude node, the shellDeformer, the
    vectorAdjust, the transform and its mesh shape.

    The artwork takes the text's road: svgToPoly -> typeExtrude ->
    shellDeformer -> vectorAdjust -> mesh, each shape standing where a
    character would, with the same materials on caps, bevels and walls.
    """
    created = []
    try:
        return _build(created)
    except Exception:
        for node in reversed(created):
            if cmds.objExists(node):
                cmds.delete(node)
        raise


def _build(created):
    def make(*args, **flags):
        created.append(cmds.createNode(*args, **flags))
        return created[-1]

    artwork = make("svgToPoly")
    extrude = make("typeExtrude")
    animation = make("shellDeformer")
    adjust = make("vectorAdjust")
    transform = make("transform", n="svgMesh1")
    shape = make("mesh", n=transform + "Shape", p=transform)

    cmds.connectAttr(artwork + ".outputMesh", extrude + ".inputMesh")
    cmds.connectAttr(extrude + ".outputMesh", animation + ".input[0].inputGeom")
    cmds.connectAttr(animation + ".outputGeom[0]", adjust + ".input[0].inputGeom")
    cmds.connectAttr(adjust + ".outputGeom[0]", shape + ".inMesh")

    # Artwork has shapes only: no words or lines to group them into.
    for deformer in (animation, adjust):
        cmds.connectAttr(artwork + ".solidsPerCharacter", deformer + ".solidsPerCharacter")
        cmds.connectAttr(artwork + ".vertsPerChar", deformer + ".vertsPerChar")
        cmds.connectAttr(extrude + ".vertexGroupIds", deformer + ".vertexGroupIds")
    cmds.connectAttr(artwork + ".vertsPerChar", extrude + ".vertsPerChar")
    cmds.connectAttr("time1.outTime", animation + ".time")

    cmds.connectAttr(animation + ".message", artwork + ".animationMessage")
    cmds.connectAttr(extrude + ".message", artwork + ".extrudeMessage")
    cmds.connectAttr(transform + ".message", artwork + ".transformMessage")
    cmds.connectAttr(shape + ".message", artwork + ".remeshMessage")

    addMaterials(make, extrude, shape)

    return [artwork, extrude, animation, adjust, transform, shape]
