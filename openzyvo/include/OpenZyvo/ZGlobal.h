#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZCommandResult.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZSelectionList.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZStringArray.h>

// Host-wide services: running scripts in the host's command language and in
// its embedded Python, queuing them for when the host is idle, and showing
// messages.
//
// Scripts report their own errors (with line and column) through the message
// log and return kFailure. `displayEnabled` echoes the script and its result
// to the log; `undoEnabled` lets the commands it runs be undone, one undo
// step per statement. Commands run on the main thread; other threads queue
// them with executeCommandOnIdle.
class OZ_API ZGlobal {
public:
    static ZStatus executeCommand(const ZString& command, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static ZStatus executeCommand(const ZString& command, ZCommandResult& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    // The typed forms fail with kInvalidParameter when the script ran but its
    // result has another type.
    static ZStatus executeCommand(const ZString& command, int& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static ZStatus executeCommand(const ZString& command, double& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static ZStatus executeCommand(const ZString& command, ZString& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static ZStatus executeCommand(const ZString& command, ZStringArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static ZStatus executeCommand(const ZString& command, ZIntArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static ZStatus executeCommand(const ZString& command, ZDoubleArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static ZString executeCommandStringResult(const ZString& command, bool displayEnabled = false,
                                              bool undoEnabled = false, ZStatus* status = nullptr);

    // Queues the script; it runs after the current top-level command has
    // finished, in the order queued.
    static ZStatus executeCommandOnIdle(const ZString& command, bool displayEnabled = false);

    // Runs Python code in the host's interpreter (in the namespace of
    // __main__, shared by every call). When the code is a single expression
    // its value is the result, as the text str() gives; otherwise the result
    // is empty. A Python exception is shown as an error and returns kFailure.
    static ZStatus executePythonCommand(const ZString& command, bool displayEnabled = false,
                                        bool undoEnabled = false);
    static ZStatus executePythonCommand(const ZString& command, ZString& result, bool displayEnabled = false,
                                        bool undoEnabled = false);
    static ZString executePythonCommandStringResult(const ZString& command, bool displayEnabled = false,
                                                    bool undoEnabled = false, ZStatus* status = nullptr);
    static ZStatus executePythonCommandOnIdle(const ZString& command, bool displayEnabled = false);

    // The objects the user has selected, in the order selected.
    static ZStatus getActiveSelectionList(ZSelectionList& list);

    static void displayInfo(const ZString& text);
    static void displayWarning(const ZString& text);
    static void displayError(const ZString& text);
};
