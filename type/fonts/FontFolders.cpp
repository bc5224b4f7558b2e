#include "fonts/FontFolders.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace type {

namespace {

constexpr char kSyncedFontsFolder[] = "/AppData/Roaming/Adobe/CoreSync/plugins/livetype/r";

// In the file system's own encoding, as FreeType and the folder walk open it.
ZString fileName(const QString& path) {
    return ZString(QFile::encodeName(path).toStdString());
}

} // namespace

ZString homeFolder() {
    return fileName(QDir::homePath());
}

std::vector<ZString> fontFolders() {
    std::vector<ZString> folders{homeFolder() + kSyncedFontsFolder};
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::FontsLocation))
        folders.push_back(fileName(folder));
    return folders;
}

} // namespace type
