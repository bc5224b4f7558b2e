"""Finding the type node behind the nodes of a text object."""

import zyvo.cmds as cmds

def typeNodeOf(node):
    """The type node a companion node links to, or None: the type node links
    its companions through the children of its "vectorMessages" attribute,
    each fed by a companion's "message"."""
    linked = cmds.listConnections(node + ".message", s=False, d=True, t="type") or []
    return linked[0] if linked else None
