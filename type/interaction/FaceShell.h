#pragma once

#include <OpenZyvo/ZObject.h>
#include <optional>

namespace type {

// The index of the shell (connected piece) of mesh `mesh` that holds face
// `face`, shells counted in the order of their lowest vertex. The text's
// meshes add characters, and each character's shells, in text order, so this
// is the face's place in the running sums of solidsPerCharacter whether the
// mesh is the flat text or the extruded solid (whose vertices are not the
// flat text's). Nothing for a face the mesh does not have.
std::optional<std::size_t> shellOfFace(const ZObject& mesh, int face);

} // namespace type
