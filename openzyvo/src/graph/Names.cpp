#include "graph/Names.h"

#include <cctype>

namespace oz {

bool isValidName(const ZString& name) {
    const std::string& s = name.asStdString();
    if (s.empty() || !(std::isalpha(static_cast<unsigned char>(s[0])) || s[0] == '_'))
        return false;
    for (char c : s)
        if (!(std::isalnum(static_cast<unsigned char>(c)) || c == '_'))
            return false;
    return true;
}

ZString nameStem(const ZString& name) {
    const std::string& s = name.asStdString();
    std::size_t end = s.size();
    while (end > 0 && std::isdigit(static_cast<unsigned char>(s[end - 1])))
        --end;
    return ZString(s.substr(0, end));
}

} // namespace oz
