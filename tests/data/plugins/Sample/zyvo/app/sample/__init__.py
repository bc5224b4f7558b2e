"""Host-side scripts of the Sample test plug-in."""

import zyvo

initialised = 0


def _init_plugin():
    global initialised
    initialised += 1
    return initialised


def _uninit_plugin():
    return 0


zyvo.registerProcedure("sampleInitPlugin", _init_plugin)
zyvo.registerProcedure("sampleUninitPlugin", _uninit_plugin)
