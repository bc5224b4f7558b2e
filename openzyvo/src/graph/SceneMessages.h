#pragma once

#include <OpenZyvo/ZSceneMessage.h>
#include <OpenZyvo/ZStringArray.h>

namespace oz {

// Runs the scene callbacks installed for `message`, in the order they were
// installed. Called by whoever does what the message announces (file
// reading, saving, plug-in loading, new scenes).
void notifySceneMessage(ZSceneMessage::Message message, const ZStringArray& strings = ZStringArray());

} // namespace oz
