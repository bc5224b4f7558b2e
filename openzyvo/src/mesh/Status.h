#pragma once

namespace oz::mesh {

// Outcome of a kernel operation. Failing operations leave the mesh as it was.
enum class Status {
    Success,
    InvalidIndex,    // a vertex, face, loop or uv id outside its range
    InvalidArgument, // a negative tolerance, a zero ray direction, a loop of fewer than 3 vertices
    SizeMismatch,    // an array whose length disagrees with the mesh or with its counts
    DegenerateLoop,  // merging collapsed a loop below 3 distinct vertices
    UnknownUvSet,
    TooLarge, // more elements than 32-bit ids can address
};

constexpr const char* statusText(Status status) {
    switch (status) {
    case Status::Success:
        return "success";
    case Status::InvalidIndex:
        return "index out of range";
    case Status::InvalidArgument:
        return "invalid argument";
    case Status::SizeMismatch:
        return "array size does not match";
    case Status::DegenerateLoop:
        return "loop collapses to fewer than 3 vertices";
    case Status::UnknownUvSet:
        return "no uv set of that name";
    case Status::TooLarge:
        return "too many elements for 32-bit ids";
    }
    return "unknown status";
}

} // namespace oz::mesh
