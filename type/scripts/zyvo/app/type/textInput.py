"""The text a type node lays out, as scripts and tools set it."""

import zyvo.cmds as cmds


def encodeText(text):
    """The form the type node keeps its text in: each byte of the UTF-8 text
    as two lower-case hexadecimal digits and a blank."""
    return "".join("%02x " % byte for byte in text.encode("utf-8"))


def typeSetText(node, text):
    """Gives the type node `node` the text `text`."""
    cmds.setAttr(node + ".textInput", encodeText(text), type="string")
