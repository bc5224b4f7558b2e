#pragma once

#include "graph/Attribute.h"
#include "graph/Slot.h"

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>

namespace oz {

// Reading and writing the value of one slot as the API's value types.

// `value` as the attribute's number kind stores it: booleans 0 or 1, integers
// rounded, floats in single precision.
double normaliseNumber(const Attribute& attribute, double value);

// A single number (numeric, unit or enum attribute of one component).
ZStatus readNumber(const Slot& slot, const Attribute& attribute, double& value);
// Stores a single number; with `checked`, hard limits clamp it and an enum
// value that is no field is refused (the slot keeps its value).
ZStatus writeNumber(Slot& slot, const Attribute& attribute, double value, bool checked);

ZStatus readString(const Slot& slot, const Attribute& attribute, ZString& value);
ZStatus writeString(Slot& slot, const Attribute& attribute, const ZString& value);

// Typed values as their data object; numbers as numeric data.
ZStatus readObject(const Slot& slot, const Attribute& attribute, ZObject& value);
ZStatus writeObject(Slot& slot, const Attribute& attribute, const ZObject& value);

// Component `i` of a numeric tuple or of a compound of numbers.
double component(const Slot& slot, const Attribute& attribute, unsigned int i);
void setComponent(Slot& slot, const Attribute& attribute, unsigned int i, double value);

} // namespace oz
