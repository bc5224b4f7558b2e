#pragma once

#include <OpenZyvo/ZStatus.h>

namespace oz::scene {

// Ends the scene: the undo queue, the selection, half-declared attributes
// and every node go, default nodes too. Refused, changing nothing, while a
// node computes.
ZStatus closeScene();

// Empties the scene for a new one or for a file to be read into: the scene
// is closed, the default nodes come back fresh, the file's notes go, the
// time goes back to 0 and the playback range to its defaults. Units stay as
// the user set them.
ZStatus resetScene();

} // namespace oz::scene
