#pragma once

#include "fonts/FontCatalogue.h"

#include <functional>
#include <vector>

namespace type {

// What the scan asks of the host. Every member may be left empty.
struct FontScanHooks {
    // Asked before each folder entry; true stops the scan, keeping what was
    // found so far.
    std::function<bool()> interruptRequested;
    // Bracket the reading of each listed folder that has entries, so the host
    // can show that it is busy.
    std::function<void(const ZString& folder)> folderStarted;
    std::function<void()> folderFinished;
};

enum class FontScanResult { Completed, Interrupted };

// Adds the fonts of every file in the folders, in the order given, to the
// catalogue. Within a folder, entries are taken in byte order of their names,
// so the first of two files declaring the same family and style is the same
// on every file system. On Linux, sub-folders are scanned where they stand in
// that order. Folders that are missing or unreadable are skipped, as are files
// that are not fonts.
FontScanResult scanFontFolders(const std::vector<ZString>& folders, FontCatalogue& catalogue,
                               const FontScanHooks& hooks = {});

} // namespace type
