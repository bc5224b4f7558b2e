#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace oz::cmd {

// Larger than any script or scene file written by hand or by the host; a
// bigger file is refused rather than read into memory.
constexpr std::uintmax_t kMaxSourceFileBytes = std::uintmax_t{512} << 20;

// The whole text of a script or scene file. Only regular files are read:
// a device or a pipe may never end or block the host. A UTF-8 byte-order
// mark is an encoding mark, not text, and is dropped. Empty when the file
// cannot be read, with the reason in `why` ("it is not a regular file").
std::optional<std::string> readSourceFile(const std::string& path, std::string& why);

} // namespace oz::cmd
