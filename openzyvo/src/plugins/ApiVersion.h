#pragma once

#include <string>

namespace oz::plugins {

// "2.0.0" for 20000.
std::string formatApiVersion(int version);

// Why a library built against API `version` cannot run on this runtime, or
// empty when it can: the major versions must match and the library must not
// be newer than the runtime.
std::string apiIncompatibility(int version);

// Whether this runtime meets a plug-in's stated requirement: "Any", or the
// lowest API version it needs, as a number ("20000") or dotted ("2.0").
bool meetsRequiredApi(const std::string& required);

} // namespace oz::plugins
