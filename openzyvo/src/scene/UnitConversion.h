#pragma once

namespace oz {
class Attribute;
}

namespace oz::scene {

// Commands and scene files give angles and lengths in the user's units
// (ZAngle::uiUnit, ZDistance::uiUnit); the graph holds radians and
// centimetres. Times are held in the user's unit already, and other numbers
// have no unit. Single-precision values show as the shortest number that
// reads back as the same float (0.1, not 0.10000000149011612).
double toUiUnits(const Attribute& attribute, double stored);
double fromUiUnits(const Attribute& attribute, double shown);

} // namespace oz::scene
