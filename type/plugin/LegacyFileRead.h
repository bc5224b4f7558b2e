#pragma once

#include <OpenZyvo/ZObject.h>

class ZSelectionList;

// Nodes read from scene files of older versions keep the behaviour they were
// saved with. The shell's scene callbacks bracket every file read; type nodes
// made in between report themselves, and when the read ends they get the
// legacy flags their file's version calls for.
namespace type::legacy {

// True between the before- and after-file-read callbacks. A file read that
// began before the plug-in was loaded does not count.
bool isReadingFile();

// Called by each type node made while a file is read.
void rememberNode(const ZObject& node);

// The shell's scene callbacks (no client data).
void beforeFileRead(void* clientData);
void afterFileRead(void* clientData);

// Sets the legacy flags of `nodes`, read from a file of `fileVersion`.
void markLegacyNodes(const ZSelectionList& nodes, int fileVersion);

} // namespace type::legacy
