#pragma once

#include <OpenZyvo/ZStatus.h>
#include <string>

namespace oz::python {

// The host's one Python interpreter. It starts on first use (or when the
// host calls initialize) and keeps running until shutdown; between calls no
// thread holds the interpreter lock, so any thread may run Python.

// Fails (and says why in the message log) when the interpreter cannot start.
ZStatus initialize();
bool isInitialized();
// Whether the calling thread is the one that started the interpreter: the
// host's main thread, the only one that runs commands.
bool onMainThread();
// Ends the interpreter; Python calls after it fail. Only the host calls this,
// once, at exit.
void shutdown();

// Makes a scripts folder importable: the folder joins sys.path, and its
// `zyvo` subfolder, if any, joins the `zyvo` package, so that
// <folder>/zyvo/app/type/__init__.py is imported as zyvo.app.type. Folders
// added before the interpreter starts are added when it starts.
void addScriptFolder(const std::string& folder);

struct RunOutcome {
    ZStatus status;
    bool hasResult = false; // the code was an expression with a value other than None
    std::string result;     // str() of that value
};

// Runs code in the namespace of __main__. A single expression is evaluated
// and yields its value; anything else is executed. A Python exception is
// reported through the message log and fails the run.
RunOutcome run(const std::string& code);

} // namespace oz::python
