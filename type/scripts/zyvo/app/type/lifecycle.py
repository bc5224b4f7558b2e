"""What the plug-in's script procedures are, and their coming and going."""

import zyvo

from zyvo.app.type import createSvg, createText, extruderGroupIds, textInput, toolValues

# Procedures the plug-in's nodes, tools and menus call by name.
PROCEDURES = {
    "typeCreateText": createText.typeCreateText,
    "typeCreateSvg": createSvg.typeCreateSvg,
    "createExtruderGroupIds": extruderGroupIds.createExtruderGroupIds,
    "typeTRSToolValues": toolValues.typeTRSToolValues,
    "typeSetText": textInput.typeSetText,
}


def typeInitPlugin():
    for name, procedure in PROCEDURES.items():
        zyvo.registerProcedure(name, procedure)


def typeUninitPlugin():
    for name in PROCEDURES:
        zyvo.deregisterProcedure(name)
