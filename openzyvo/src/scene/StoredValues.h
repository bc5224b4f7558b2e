#pragma once

#include <string>

namespace oz {
class Attribute;
class Node;
} // namespace oz

namespace oz::scene {

// Appends a setAttr statement for every stored value of the node that a
// scene file must hold: storable, writable plugs that no connection drives,
// whose values differ from their defaults, and every existing element of
// arrays (an element exists only when something made it). Values are read
// as stored, without evaluating anything. Data of kinds that nodes make
// rather than store (component lists, array attributes) is left out.
void appendStoredValues(Node& node, std::string& out);

// A stored number as setAttr gives it back: in the user's units, in the
// shortest text that converts back to exactly the stored value.
void appendStoredNumber(std::string& out, const Attribute& attribute, double stored);

} // namespace oz::scene
