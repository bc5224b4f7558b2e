#pragma once

// Names one value of the manipulators of a container (a triad's point, a
// rotate manipulator's rotation, ...) or one plug given a conversion; indices
// are local to the container.
using ZManipIndex = unsigned int;
