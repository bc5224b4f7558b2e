#pragma once

#include <QByteArray>

namespace type {

// The artwork a pasted node shows before anything is pasted: a green plus
// sign inside a dashed grey frame, as the vector drawing tool of the day wrote it.
QByteArray sampleArtwork();

} // namespace type
