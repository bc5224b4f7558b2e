"""A complete, wired text object."""

import zyvo.cmds as cmds

# The font a new text object starts in.
DEFAULT_FONT = ("Liberation Serif", "Italic")


def typeCreateText():
    """Creates a text object and returns the names of its nodes: the type
    node, the typeExtrude node, the shellDeformer, the vectorAdjust, the
    transform and its mesh shape.

    The flat text goes type -> typeExtrude -> shellDeformer -> vectorAdjust
    -> mesh; the per-character arrays go where the extrusion and the
    deformers read them; the companions' "message" plugs let tools find the
    type node from any of them (the mesh shape, which shows the rebuilt
    mesh, takes the remesh link).
    """
    created = []
    try:
        return _build(created)
    except Exception:
        # Half a text object would only confuse; take back what was made.
        for node in reversed(created):
            if cmds.objExists(node):
                cmds.delete(node)
        raise


def _build(created):
    def make(*args, **flags):
        created.append(cmds.createNode(*args, **flags))
        return created[-1]

    text = make("type")
    cmds.setAttr(text + ".currentFont", DEFAULT_FONT[0], type="string")
    cmds.setAttr(text + ".currentStyle", DEFAULT_FONT[1], type="string")
    extrude = make("typeExtrude")
    animation = make("shellDeformer")
    adjust = make("vectorAdjust")
    transform = make("transform", n="typeMesh1")
    shape = make("mesh", n=transform + "Shape", p=transform)

    # Where the type manipulator's rotation handle sits.
    cmds.addAttr(transform, ln="toolPosition", at="double3")
    for axis in "XYZ":
        cmds.addAttr(transform, ln="toolPosition" + axis, at="double", p="toolPosition")

    cmds.connectAttr(text + ".outputMesh", extrude + ".inputMesh")
    cmds.connectAttr(extrude + ".outputMesh", animation + ".input[0].inputGeom")
    cmds.connectAttr(animation + ".outputGeom[0]", adjust + ".input[0].inputGeom")
    cmds.connectAttr(adjust + ".outputGeom[0]", shape + ".inMesh")

    for deformer in (animation, adjust):
        cmds.connectAttr(text + ".grouping", deformer + ".grouping")
        cmds.connectAttr(text + ".vertsPerChar", deformer + ".vertsPerChar")
        cmds.connectAttr(extrude + ".vertexGroupIds", deformer + ".vertexGroupIds")
    cmds.connectAttr(text + ".vertsPerChar", extrude + ".vertsPerChar")
    cmds.connectAttr("time1.outTime", animation + ".time")

    cmds.connectAttr(animation + ".message", text + ".animationMessage")
    cmds.connectAttr(extrude + ".message", text + ".extrudeMessage")
    cmds.connectAttr(transform + ".message", text + ".transformMessage")
    cmds.connectAttr(shape + ".message", text + ".remeshMessage")

    return [text, extrude, animation, adjust, transform, shape]
