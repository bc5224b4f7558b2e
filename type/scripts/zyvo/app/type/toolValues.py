"""The settings the type manipulator tool shows."""

import zyvo.cmds as cmds

from zyvo.app.type.companions import typeNodeOf


def typeTRSToolValues(context=None):
    """The values of the text the tool `context` edits: the type node's
    manipulatorMode and manipulateId, then its positionAdjust,
    rotationAdjust and scaleAdjust (three numbers each). Empty when the
    selection is not one text object."""
    selection = cmds.ls(sl=True) or []
    if len(selection) != 1:
        return []
    text = typeNodeOf(selection[0])
    if text is None:
        return []
    values = [cmds.getAttr(text + ".manipulatorMode"), cmds.getAttr(text + ".manipulateId")]
    for attribute in ("positionAdjust", "rotationAdjust", "scaleAdjust"):
        values.extend(cmds.getAttr(text + "." + attribute))
    return values
