#pragma once

namespace zyvo {

// Prepares what the libraries the host loads (Qt, through plug-ins) expect
// of the process, so that they have nothing to complain about and their
// diagnostics stay out of the user's terminal:
// - a private runtime folder when the session names none (XDG_RUNTIME_DIR);
// - Qt's messages go to a debug channel, shown on standard error only when
//   `showDiagnostics` (--verbose); fatal ones are always shown.
// Runs first, before any library reads the environment.
void prepareProcess(bool showDiagnostics);

} // namespace zyvo
