"""A complete, wired SVG object."""

import zyvo.cmds as cmds

from zyvo.app.type.createText import addSolidChain, buildWhole


def typeCreateSvg():
    """Creates an SVG object and returns the names of its nodes: the
    svgToPoly node, the typeExtrude node, the shellDeformer, the
    vectorAdjust, the transform and its mesh shape.

    The artwork takes the text's road: svgToPoly -> typeExtrude ->
    shellDeformer -> vectorAdjust -> mesh, each shape standing where a
    character would, with the same materials on caps, bevels and walls.
    """
    return buildWhole(_build)


def _build(make):
    artwork = make("svgToPoly")
    extrude, animation, adjust, transform, shape = addSolidChain(make, artwork, "svgMesh1")
    # Artwork has shapes only: no words or lines to group them into.
    for deformer in (animation, adjust):
        cmds.connectAttr(artwork + ".solidsPerCharacter", deformer + ".solidsPerCharacter")

    return [artwork, extrude, animation, adjust, transform, shape]
