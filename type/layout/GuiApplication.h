#pragma once

namespace type {

// Qt's font database and text layout need a QGuiApplication. A host with a Qt
// interface has one already; for a headless host the plug-in creates one on
// the offscreen platform the first time it is needed. Returns false when the
// host runs a Qt application without a GUI, which cannot be replaced: the Qt
// text paths are unavailable then.
//
// Call on the thread that evaluates nodes.
bool ensureGuiApplication();

} // namespace type
