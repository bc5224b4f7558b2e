#include "plugin/LegacyFileRead.h"

#include "plugin/ApiError.h"

#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZSelectionList.h>

namespace type::legacy {

namespace {

constexpr char kUnit[] = "pluginMain";

// Touched on the main thread only: by the scene callbacks and by the
// post-constructors of nodes the reader makes.
bool readingFile = false;

ZSelectionList& nodesReadFromFile() {
    static ZSelectionList nodes;
    return nodes;
}

void setFlag(const ZFnDependencyNode& node, const char* attribute) {
    ZStatus status;
    ZPlug plug = node.findPlug(attribute, true, &status);
    if (!status) {
        reportApiError(status, kUnit);
        return;
    }
    status = plug.setValue(true);
    if (!status)
        reportApiError(status, kUnit);
}

} // namespace

bool isReadingFile() {
    return readingFile;
}

void rememberNode(const ZObject& node) {
    nodesReadFromFile().add(node);
}

void beforeFileRead(void*) {
    readingFile = true;
}

void afterFileRead(void*) {
    const ZSelectionList nodes = nodesReadFromFile();
    markLegacyNodes(nodes, ZFileIO::currentlyReadingFileVersion());
    readingFile = false;
    nodesReadFromFile().clear();
}

// The outer test stops at 210 while preTLDecompose asks for versions below
// 211, and only type nodes enter the list, so the svgToPoly branch never
// acts. Scenes saved since were written against exactly this behaviour, so
// it stays as it is.
void markLegacyNodes(const ZSelectionList& nodes, int fileVersion) {
    if (fileVersion >= 210)
        return;
    for (unsigned int i = 0; i < nodes.length(); ++i) {
        ZObject object;
        if (!nodes.getDependNode(i, object))
            continue;
        ZFnDependencyNode node;
        if (!node.setObject(object))
            continue;
        const ZString typeName = node.typeName();
        if (fileVersion < 202 && typeName == "type")
            setFlag(node, "legacyDecomposition");
        if (fileVersion < 210 && typeName == "svgToPoly")
            setFlag(node, "legacy2018");
        if (fileVersion < 211 && typeName == "type")
            setFlag(node, "preTLDecompose");
    }
}

} // namespace type::legacy
