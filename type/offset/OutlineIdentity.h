#pragma once

#include "offset/FaceOutline.h"

#include <cstdint>

namespace type {

// Outlines are alike only when every point is the very same double: work done for one (its
// directions, its distance field) then holds for the other bit for bit.
uint64_t outlineHash(const FaceOutline& outline);
bool sameOutline(const FaceOutline& a, const FaceOutline& b);

} // namespace type
