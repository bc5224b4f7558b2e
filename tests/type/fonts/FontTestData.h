#pragma once

#include <OpenZyvo/ZString.h>
#include <string>

namespace type::test {

// The fonts made by scripts/make-test-fonts: "synced" stands in for the
// font-sync folder, "installed" for a system font folder.
inline ZString fontData(const std::string& relative) {
    return ZString(std::string(ZYVO_TEST_DATA_DIR) + "/fonts/" + relative);
}

} // namespace type::test
