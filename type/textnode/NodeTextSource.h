#pragma once

#include "textsource/GeneratorSettings.h"
#include "textsource/TextGeneratorHost.h"

#include <OpenZyvo/ZObject.h>
#include <iosfwd>
#include <string>

class ZDataBlock;

namespace type {

// The text-source attributes of a type node, as its compute reads them.
GeneratorSettings generatorSettings(ZDataBlock& block);

// The host services the text generator uses for `node`: the host's Python
// interpreter and the animation curve that drives the node's "percent".
TextGeneratorHost textGeneratorHost(const ZObject& node);

// The text a type node lays out at this evaluation, in the hexadecimal text
// encoding: "textInput", or what the generator makes of the node's time. A
// bad "animatedType" document is reported on `diagnostics`.
std::string currentHexText(ZDataBlock& block, const ZObject& node, std::ostream& diagnostics);

} // namespace type
