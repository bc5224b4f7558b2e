#pragma once

#include <string_view>
#include <vector>

namespace type {

// One command of path data, its letter in lower case.
struct PathCommand {
    char letter = 'm';
    bool isRelative = false;
    std::vector<double> numbers;

    friend bool operator==(const PathCommand&, const PathCommand&) = default;
};

// How many numbers one use of the command takes (m 2, c 6, a 7, z 0...).
std::size_t argumentCount(char letter);

// Splits path data into commands. Numbers beyond a command's count open an
// implicit repeat of it, except that a move repeats as a line-to of its own
// case. Characters that are neither command letters nor numbers separate.
std::vector<PathCommand> tokenisePath(std::string_view data);

} // namespace type
