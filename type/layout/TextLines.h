#pragma once

#include <QStringList>
#include <string>

namespace type {

// The hex-token text decoded and split into lines at "\n", "\r\n" and "\r".
// Empty lines are kept, so a trailing line break ends in an empty line; an
// empty text has no line at all.
QStringList textLines(const std::string& hexText);

} // namespace type
