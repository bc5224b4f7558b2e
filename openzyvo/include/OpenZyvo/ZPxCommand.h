#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZArgList.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvo/ZSyntax.h>
#include <memory>

namespace oz::cmd {
struct CommandAccess;
struct CommandState;
} // namespace oz::cmd

// Base of every command. The runtime creates one instance per call through
// the creator it was registered with, calls doIt once, and keeps the
// instance on the undo queue when isUndoable() says so; undo and redo then
// call undoIt and redoIt on that same instance.
class OZ_API ZPxCommand {
public:
    ZPxCommand();
    virtual ~ZPxCommand();
    ZPxCommand(const ZPxCommand&) = delete;
    ZPxCommand& operator=(const ZPxCommand&) = delete;

    virtual ZStatus doIt(const ZArgList& args);
    virtual ZStatus undoIt();
    virtual ZStatus redoIt();
    virtual bool isUndoable() const;
    // Whether the runtime checks calls against the registered syntax before
    // doIt (only commands registered with a syntax creator have one).
    virtual bool hasSyntax() const;

    // The syntax the command was registered with (empty without one).
    ZSyntax syntax() const;
    // The name the command was called by.
    ZString commandName() const;

    // The result of the running command. appendToResult turns a scalar result
    // of the same type into an array.
    static void clearResult();
    static void setResult(bool result);
    static void setResult(int result);
    static void setResult(double result);
    static void setResult(const ZString& result);
    static void setResult(const char* result);
    static void setResult(const ZIntArray& result);
    static void setResult(const ZDoubleArray& result);
    static void setResult(const ZStringArray& result);
    static void appendToResult(int result);
    static void appendToResult(double result);
    static void appendToResult(const ZString& result);
    static void appendToResult(const char* result);

    // User messages, shown in the host's message log.
    static void displayInfo(const ZString& text);
    static void displayWarning(const ZString& text);
    static void displayError(const ZString& text);

private:
    friend struct oz::cmd::CommandAccess;
    std::unique_ptr<oz::cmd::CommandState> m_state;
};
