"""Helpers the type node queues when its settings change."""

import zyvo.cmds as cmds


def flipTypeManipulator():
    """Rebuilds the type manipulator for the level (character, word or line)
    just chosen: the tool attaches its manipulator whenever the selection
    changes, so the selection is set anew."""
    selection = cmds.ls(sl=True) or []
    if not selection:
        return
    cmds.select(cl=True)
    cmds.select(selection, r=True)
