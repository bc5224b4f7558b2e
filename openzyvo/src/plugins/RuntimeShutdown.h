#pragma once

#include <OpenZyvo/ZStatus.h>

namespace oz::plugins {

// Ends the session in the one order that keeps a plug-in's code mapped for
// as long as anything made by it exists: work queued for idle time runs,
// then the undo queue, the scene's nodes (with their callbacks and cached
// data) and last the plug-ins go, latest first, each uninitialised before
// its library is closed. The host calls it before it exits, while the
// interpreter still runs; a plug-in that refuses to go stays mapped until
// the process ends.
ZStatus shutdownRuntime();

} // namespace oz::plugins
