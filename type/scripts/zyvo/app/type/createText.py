"""A complete, wired text object."""

import zyvo.cmds as cmds

from zyvo.app.type.extruderGroupIds import nextFreeGroupId

# The font a new text object starts in.
DEFAULT_FONT = ("Liberation Serif", "Italic")

# The parts of the solid that each get a material of their own: the
# typeExtrude attribute that holds the part's object-group id, the names of
# the part's shader and shading group, and the shader's starting colour.
_MATERIAL_PARTS = (
    ("capGroupId", "typeCapShader1", "typeCapSG1", (0.85, 0.85, 0.85)),
    ("bevelGroupId", "typeBevelShader1", "typeBevelSG1", (0.9, 0.65, 0.2)),
    ("extrudeGroupId", "typeExtrusionShader1", "typeExtrusionSG1", (0.3, 0.35, 0.5)),
)


# What the type node stores of the manipulator's edits, which the
# vectorAdjust applies to the solid. The type node's line offsets stay
# behind: its mesh is already aligned, and the vectorAdjust would shift the
# lines by them a second time.
_ADJUSTMENTS = tuple(
    "manipulator" + level + kind + "PP"
    for kind in ("Positions", "Rotations", "Scales")
    for level in ("", "Word", "Line")
) + ("alignmentMode", "manipulatorMode")


def typeCreateText():
    """Creates a text object and returns the names of its nodes: the type
    node, the typeExtrude node, the shellDeformer, the vectorAdjust, the
    transform and its mesh shape.

    The flat text goes type -> typeExtrude -> shellDeformer -> vectorAdjust
    -> mesh; the per-character arrays go where the extrusion and the
    deformers read them; the companions' "message" plugs let tools find the
    type node from any of them (the mesh shape, which shows the rebuilt
    mesh, takes the remesh link). The cap, bevel and extrusion faces each
    get a Lambert shader and shading group of their own, bound through the
    object groups typeExtrude publishes.
    """
    return buildWhole(_build)


def buildWhole(build):
    """Runs build(make), `make` creating a node like cmds.createNode, and
    returns what it returns. Half an object would only confuse: when build
    fails, the nodes made so far are deleted again.
    """
    created = []

    def make(*args, **flags):
        created.append(cmds.createNode(*args, **flags))
        return created[-1]

    try:
        return build(make)
    except Exception:
        for node in reversed(created):
            if cmds.objExists(node):
                cmds.delete(node)
        raise


def _build(make):
    text = make("type")
    cmds.setAttr(text + ".currentFont", DEFAULT_FONT[0], type="string")
    cmds.setAttr(text + ".currentStyle", DEFAULT_FONT[1], type="string")
    extrude, animation, adjust, transform, shape = addSolidChain(make, text, "typeMesh1")

    # Where the type manipulator's rotation handle sits.
    cmds.addAttr(transform, ln="toolPosition", at="double3")
    for axis in "XYZ":
        cmds.addAttr(transform, ln="toolPosition" + axis, at="double", p="toolPosition")

    for deformer in (animation, adjust):
        cmds.connectAttr(text + ".grouping", deformer + ".grouping")
    for attribute in _ADJUSTMENTS:
        cmds.connectAttr(text + "." + attribute, adjust + "." + attribute)

    return [text, extrude, animation, adjust, transform, shape]


def addSolidChain(make, source, name):
    """Makes the chain a flat mesh takes to the screen: `source` (a type or
    svgToPoly node) -> typeExtrude -> shellDeformer -> vectorAdjust -> a
    mesh shape under a transform called `name`, with the per-character
    counts and group ids where the extrusion and the deformers read them,
    the companions' "message" links back to `source` and the materials.
    Returns the typeExtrude node, the shellDeformer, the vectorAdjust, the
    transform and the shape; `make` creates each node.
    """
    extrude = make("typeExtrude")
    animation = make("shellDeformer")
    adjust = make("vectorAdjust")
    transform = make("transform", n=name)
    shape = make("mesh", n=transform + "Shape", p=transform)

    cmds.connectAttr(source + ".outputMesh", extrude + ".inputMesh")
    cmds.connectAttr(extrude + ".outputMesh", animation + ".input[0].inputGeom")
    cmds.connectAttr(animation + ".outputGeom[0]", adjust + ".input[0].inputGeom")
    cmds.connectAttr(adjust + ".outputGeom[0]", shape + ".inMesh")

    for deformer in (animation, adjust):
        cmds.connectAttr(source + ".vertsPerChar", deformer + ".vertsPerChar")
        cmds.connectAttr(extrude + ".vertexGroupIds", deformer + ".vertexGroupIds")
    cmds.connectAttr(source + ".vertsPerChar", extrude + ".vertsPerChar")
    cmds.connectAttr("time1.outTime", animation + ".time")

    cmds.connectAttr(animation + ".message", source + ".animationMessage")
    cmds.connectAttr(extrude + ".message", source + ".extrudeMessage")
    cmds.connectAttr(transform + ".message", source + ".transformMessage")
    cmds.connectAttr(shape + ".message", source + ".remeshMessage")

    addMaterials(make, extrude, shape)
    return extrude, animation, adjust, transform, shape


def addMaterials(make, extrude, shape):
    """Gives the cap, bevel and extrusion faces of the typeExtrude node's
    solid, shown by `shape`, a shader and shading group each; `make`
    creates (and remembers) a node."""
    for attribute, shaderName, groupName, colour in _MATERIAL_PARTS:
        groupId = make("groupId")
        cmds.setAttr(groupId + ".groupId", nextFreeGroupId())
        cmds.connectAttr(groupId + ".groupId", extrude + "." + attribute)
        shader = make("lambert", n=shaderName)
        cmds.setAttr(shader + ".color", *colour)
        shadingGroup = make("shadingEngine", n=groupName)
        cmds.connectAttr(shader + ".outColor", shadingGroup + ".surfaceShader")
        cmds.assignShaderToType(gr=groupId, sg=shadingGroup, me=shape)
