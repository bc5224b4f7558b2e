"""Host-side scripts of the Type plug-in.

The plug-in runs "typeInitPlugin" once it has registered its nodes and
"typeUninitPlugin" once it has removed them; the two procedures add and
remove the rest of the plug-in's script procedures.
"""

import zyvo

from zyvo.app.type import lifecycle

zyvo.registerProcedure("typeInitPlugin", lifecycle.typeInitPlugin)
zyvo.registerProcedure("typeUninitPlugin", lifecycle.typeUninitPlugin)
