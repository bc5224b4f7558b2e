#include "scene/SceneText.h"

#include "commands/Value.h"

#include <cmath>

namespace oz::scene {

void appendQuoted(std::string& out, const std::string& text) {
    out += '"';
    for (const char c : text) {
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\t':
            out += "\\t";
            break;
        case '\r':
            out += "\\r";
            break;
        default:
            out += c;
        }
    }
    out += '"';
}

void appendNumber(std::string& out, double value) {
    out += ' ';
    if (std::isfinite(value))
        out += cmd::formatDouble(value);
    else
        appendQuoted(out, cmd::formatDouble(value));
}

} // namespace oz::scene
