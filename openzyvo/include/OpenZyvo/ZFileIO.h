#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>

// The scene as a file: opening, saving, starting afresh, and what a node can
// ask while a scene file is being read.
//
// Reading a file sends the scene messages kBeforeFileRead and then
// kAfterFileRead; isReadingFile() is true from the first to the second, and
// currentlyReadingFileVersion() tells which version wrote the file. Problems
// in a file (unknown node types, bad values, missing connection ends,
// syntax errors, a truncated end) are reported with their line as errors in
// the message log; everything sound in the file is still loaded.
class OZ_API ZFileIO {
public:
    // The version files written now carry.
    static int latestFileVersion();

    static bool isReadingFile();
    static bool isWritingFile();
    // The version in the header of the file being read; 0 when no file is read.
    static int currentlyReadingFileVersion();

    // The path the scene was last opened from or saved to, or renamed to;
    // empty for a scene never saved.
    static ZString currentFile();
    static ZStatus setCurrentFile(const ZString& path);

    // Replaces the scene by the one in the file. Fails when the file cannot
    // be read at all; a file with problems still opens (see above) and
    // returns kFailure after loading what it could.
    static ZStatus open(const ZString& path);
    // Writes the scene to `path` (the current file when empty), which then
    // becomes the current file.
    static ZStatus save(const ZString& path = ZString());
    // Empties the scene, keeping its default nodes (time1). Without `force`
    // it fails when the scene has changes that were not saved.
    static ZStatus newFile(bool force);

    // Whether the scene changed since it was last opened, saved or made new.
    static bool isModified();
};
