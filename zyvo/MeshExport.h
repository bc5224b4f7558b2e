#pragma once

#include <OpenZyvo/ZStatus.h>
#include <string>
#include <vector>

namespace zyvo {

// Refuses, with an error, files of which one would overwrite what an earlier
// one writes: the same path, however spelled, or the material library of an
// OBJ file.
ZStatus checkDistinctFiles(const std::vector<std::string>& files);

} // namespace zyvo
