#pragma once

// The version of the API these headers describe, as major * 10000 + minor *
// 100 + patch. The host loads a plug-in built against its own major version
// and the same or an earlier minor version; anything else could call into
// functions or layouts the host does not have.
#define OPENZYVO_API_VERSION 20000

// Marks a plug-in's entry points for export:
//
//     ZYVO_PLUGIN_EXPORT ZStatus initializePlugin(ZObject plugin);
//     ZYVO_PLUGIN_EXPORT ZStatus uninitializePlugin(ZObject plugin);
#define ZYVO_PLUGIN_EXPORT extern "C" __attribute__((visibility("default")))

// Written once in a plug-in's sources: exports the `ZApiVersion` marker the
// host reads before it calls anything in the library. A library without the
// marker is not taken for a plug-in.
#define ZYVO_DEFINE_API_VERSION ZYVO_PLUGIN_EXPORT const int ZApiVersion = OPENZYVO_API_VERSION
