#pragma once

#include <OpenZyvo/ZApiExport.h>

// An RGBA colour with float components in 0..1.
class OZ_API ZColor {
public:
    float r = 0.0f, g = 0.0f, b = 0.0f, a = 1.0f;

    ZColor() = default;
    ZColor(float r, float g, float b, float a = 1.0f)
        : r(r)
        , g(g)
        , b(b)
        , a(a) {}

    float operator[](unsigned int i) const { return i == 0 ? r : (i == 1 ? g : (i == 2 ? b : a)); }
    friend bool operator==(const ZColor&, const ZColor&) = default;
};
