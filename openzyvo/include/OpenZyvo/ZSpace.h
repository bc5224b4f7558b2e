#pragma once

// The space a transformation or a geometry query works in.
namespace ZSpace {
enum Space { kInvalid = 0, kTransform, kPreTransform, kPostTransform, kWorld, kObject = kPreTransform };
} // namespace ZSpace
