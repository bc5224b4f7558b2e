#pragma once

namespace type {

// The bevel the solid is built with. The user's "Outer" (1) builds the
// internal outer bevel (2) and "Inner" (2) the internal inner one (1).
enum class InternalBevel { kNone = 0, kInner = 1, kOuter = 2 };

// The user's choice on "bevelStyle" counts only while its switch is on:
// "Outer" needs "enableOuterBevel", "Inner" needs "enableFrontBevel".
InternalBevel resolveBevelStyle(int bevelStyle, bool enableOuterBevel, bool enableFrontBevel);

} // namespace type
