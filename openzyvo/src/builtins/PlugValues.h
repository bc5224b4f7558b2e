#pragma once

#include "commands/Value.h"

#include <span>
#include <string>

class ZDGModifier;
class ZPlug;

namespace oz::builtins {

// The value of a plug as getAttr returns it: a number (bool, int or double,
// in the user's units), a tuple or a compound of numbers as a double array,
// a whole array of numbers as an array, strings and typed data as
// dataValue() gives them. Reading evaluates the plug.
bool readPlugValue(const ZPlug& plug, cmd::Value& value, std::string& error);

// Queues on `modifier` what setAttr does with `values`: typed data when
// `dataType` names a type ("doubleArray", "string"...), else numbers for
// the plug's leaves in order (an enum also by its field name). Nothing is
// queued when the values do not fit the plug; `error` then says why.
bool queuePlugValue(ZDGModifier& modifier, const ZPlug& plug, const std::string& dataType,
                    std::span<const cmd::Value> values, std::string& error);

} // namespace oz::builtins
