#pragma once

namespace oz::scene {

// Empties the scene for a new one or for a file to be read into: the undo
// queue, every node (the default nodes come back fresh), the selection,
// the file's notes and half-declared attributes go; the time goes back to
// 0 and the playback range to its defaults. Units stay as the user set them.
void resetScene();

} // namespace oz::scene
