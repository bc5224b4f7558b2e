#include "commands/ExecutionScope.h"
#include "commands/MessageLog.h"
#include "commands/SourceFile.h"
#include "commands/UndoQueue.h"
#include "core/EvaluationScope.h"
#include "graph/SceneMessages.h"
#include "scene/FileState.h"
#include "scene/NewScene.h"
#include "scene/SceneReader.h"
#include "scene/SceneWriter.h"
#include "scene/StatementSplitter.h"

#include <OpenZyvo/ZFileIO.h>
#include <fstream>

using oz::scene::FileState;

namespace {

void error(const std::string& text) {
    oz::cmd::MessageLog::instance().add(oz::cmd::MessageLog::Kind::Error, text);
}

void warning(const std::string& text) {
    oz::cmd::MessageLog::instance().add(oz::cmd::MessageLog::Kind::Warning, text);
}

// The version to read a file as: the one its header states, else the
// latest (with a warning, as the file may then be read wrongly).
int versionToRead(const std::vector<oz::scene::StatementText>& statements, const std::string& path) {
    std::string stated;
    const std::optional<int> version = oz::scene::headerVersion(statements, stated);
    const int latest = oz::scene::kLatestFileVersion;
    if (!version) {
        warning(path + ": " +
                (stated.empty() ? std::string("the file states no version")
                                : "the file's version \"" + stated + "\" is not a number") +
                "; it is read as version " + std::to_string(latest));
        return latest;
    }
    if (*version > latest)
        warning(path + ": the file was written by a newer version (" + std::to_string(*version) +
                "); what this version does not know is reported as it comes");
    return *version;
}

// A file's own statements (or the callbacks of its read) cannot replace
// the scene it is being read into, nor can a node's compute replace the
// scene it is part of.
bool replaceable() {
    if (FileState::instance().reading) {
        error("The scene cannot be replaced while a scene file is being read");
        return false;
    }
    return static_cast<bool>(oz::refuseDuringEvaluation("replace the scene"));
}

// Sets the reading state for the time of a read, whatever happens in it.
struct ReadingFlag {
    ReadingFlag(int version) {
        FileState::instance().reading = true;
        FileState::instance().readingVersion = version;
    }
    ~ReadingFlag() {
        FileState::instance().reading = false;
        FileState::instance().readingVersion = 0;
    }
};

} // namespace

int ZFileIO::latestFileVersion() {
    return oz::scene::kLatestFileVersion;
}

bool ZFileIO::isReadingFile() {
    return FileState::instance().reading;
}

bool ZFileIO::isWritingFile() {
    return FileState::instance().writing;
}

int ZFileIO::currentlyReadingFileVersion() {
    return FileState::instance().readingVersion;
}

ZString ZFileIO::currentFile() {
    return FileState::instance().currentFile;
}

ZStatus ZFileIO::setCurrentFile(const ZString& path) {
    FileState::instance().currentFile = path;
    return ZStatus::kSuccess;
}

bool ZFileIO::isModified() {
    return FileState::instance().modified();
}

ZStatus ZFileIO::open(const ZString& path) {
    if (!replaceable())
        return ZStatus::kFailure;
    std::string why;
    const std::optional<std::string> text = oz::cmd::readSourceFile(path.asStdString(), why);
    if (!text) {
        error("Cannot open the scene file \"" + path.asStdString() + "\": " + why);
        return ZStatus::kNotFound;
    }
    const auto statements = oz::scene::splitStatements(*text);
    // What the file's commands and the callbacks run is not undoable, and
    // work they leave for idle time runs once the whole file is in.
    oz::cmd::ExecutionScope scope(false);
    const std::size_t errorsBefore = oz::cmd::MessageLog::instance().errorCount();
    const int version = versionToRead(statements, path.asStdString());

    oz::notifySceneMessage(ZSceneMessage::kBeforeOpen);
    oz::scene::resetScene();
    FileState::instance().currentFile = path;
    {
        ReadingFlag reading(version);
        oz::notifySceneMessage(ZSceneMessage::kBeforeFileRead);
        oz::scene::runSceneStatements(statements, path.asStdString());
        oz::notifySceneMessage(ZSceneMessage::kAfterFileRead);
    }
    oz::cmd::UndoQueue::instance().clear();
    FileState::instance().markClean();
    oz::notifySceneMessage(ZSceneMessage::kAfterOpen);
    if (const std::size_t errors = oz::cmd::MessageLog::instance().errorCount() - errorsBefore; errors > 0) {
        error(path.asStdString() + ": " + std::to_string(errors) + " error" + (errors == 1 ? "" : "s") +
              " while reading; everything else was loaded");
        return ZStatus::kFailure;
    }
    return ZStatus::kSuccess;
}

ZStatus ZFileIO::save(const ZString& path) {
    const ZString target = path.isEmpty() ? FileState::instance().currentFile : path;
    if (target.isEmpty()) {
        error("The scene has no file name yet; give one to save it under");
        return ZStatus::kInvalidParameter;
    }
    oz::notifySceneMessage(ZSceneMessage::kBeforeSave);
    FileState::instance().writing = true;
    const std::string text = oz::scene::writeScene();
    FileState::instance().writing = false;
    std::ofstream file(target.asStdString(), std::ios::binary | std::ios::trunc);
    if (!file || !(file << text) || !file.flush()) {
        error("Cannot write the scene file \"" + target.asStdString() + "\"");
        return ZStatus::kFailure;
    }
    FileState::instance().currentFile = target;
    FileState::instance().markClean();
    oz::notifySceneMessage(ZSceneMessage::kAfterSave);
    return ZStatus::kSuccess;
}

ZStatus ZFileIO::newFile(bool force) {
    if (!replaceable())
        return ZStatus::kFailure;
    if (!force && FileState::instance().modified()) {
        error("The scene has changes that were not saved; force a new scene to discard them");
        return ZStatus::kFailure;
    }
    oz::notifySceneMessage(ZSceneMessage::kBeforeNew);
    oz::scene::resetScene();
    FileState::instance().currentFile = ZString();
    FileState::instance().markClean();
    oz::notifySceneMessage(ZSceneMessage::kAfterNew);
    return ZStatus::kSuccess;
}
