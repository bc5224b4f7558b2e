"""Group ids for the per-character vertex groups of an extrusion node
(typeExtrude, or the older vectorExtrude)."""

import re

import zyvo.cmds as cmds


def nextFreeGroupId():
    """An id no groupId node of the scene uses."""
    used = [cmds.getAttr(node + ".groupId") for node in cmds.ls(type="groupId")]
    return max(used, default=0) + 1


def _connectedIndices(plug):
    connected = cmds.listConnections(plug, s=True, d=False, p=True, c=True) or []
    indices = set()
    for name in connected[::2]:
        found = re.search(r"\[(\d+)\]$", name)
        if found:
            indices.add(int(found.group(1)))
    return indices


def createExtruderGroupIds(extruder, missing):
    """Gives `extruder` `missing` more charGroupId entries, each fed by a new
    groupId node with an id no other groupId node uses, after the entries it
    has. Returns the names of the new groupId nodes."""
    extruders = cmds.ls(type="typeExtrude") + cmds.ls(type="vectorExtrude")
    if not cmds.objExists(extruder) or extruder not in extruders:
        raise ValueError("createExtruderGroupIds: %r is not an extrusion node" % (extruder,))
    missing = int(missing)
    if missing < 0:
        raise ValueError("createExtruderGroupIds: cannot add %d ids" % missing)

    plug = extruder + ".charGroupId"
    taken = _connectedIndices(plug)
    index = cmds.getAttr(plug, size=True)
    created = []
    for _ in range(missing):
        while index in taken:
            index += 1
        # Bookkeeping run on idle: the user's selection stays as it is.
        groupId = cmds.createNode("groupId", skipSelect=True)
        cmds.setAttr(groupId + ".groupId", nextFreeGroupId())
        cmds.connectAttr(groupId + ".groupId", "%s[%d]" % (plug, index))
        taken.add(index)
        created.append(groupId)
    return created
