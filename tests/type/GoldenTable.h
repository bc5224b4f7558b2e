#pragma once

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

// Tables the plug-in must keep exactly (names scenes store, texts users see)
// are checked against golden files in tests/data/type: one row a line, fields
// separated by tabs, "\n", "\t" and "\\" standing for themselves; blank lines
// and lines starting with '#' are notes for the reader.
namespace typetest {

using GoldenRow = std::vector<std::string>;

inline std::string unescapeGoldenField(const std::string& field) {
    std::string text;
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] != '\\' || i + 1 == field.size()) {
            text += field[i];
            continue;
        }
        const char next = field[++i];
        text += next == 'n' ? '\n' : next == 't' ? '\t' : next;
    }
    return text;
}

// The rows of tests/data/type/<name>; fails the test when the file is missing
// or a row has not `fields` fields.
inline std::vector<GoldenRow> readGoldenTable(const std::string& name, std::size_t fields) {
    const std::string path = std::string(ZYVO_TEST_DATA_DIR) + "/type/" + name;
    std::ifstream file(path);
    EXPECT_TRUE(file) << "cannot read " << path;
    std::vector<GoldenRow> rows;
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        if (line.empty() || line[0] == '#')
            continue;
        GoldenRow row;
        std::istringstream cells(line);
        for (std::string cell; std::getline(cells, cell, '\t');)
            row.push_back(unescapeGoldenField(cell));
        EXPECT_EQ(row.size(), fields) << name << ":" << number << ": " << line;
        if (row.size() == fields)
            rows.push_back(std::move(row));
    }
    EXPECT_FALSE(rows.empty()) << name;
    return rows;
}

} // namespace typetest
