"""Host-side scripts of the Sample test plug-in."""

import zyvo

initialised = 0


def _init_plugin():
    global initialised
    initialised += 1
    return initialised


zyvo.registerProcedure("sampleInitPlugin", _init_plugin)
