#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

// Runs the zyvo program in a child process and collects what it printed.
struct ProgramResult {
    int exitCode = -1;
    std::string out;
    std::string err;
};

struct ProgramRun {
    std::vector<std::string> args;
    std::filesystem::path program = ZYVO_PROGRAM;
    // Set in the child; an empty value unsets the variable. ZYVO_PLUG_IN_PATH
    // and ZYVO_SCRIPT_PATH are always unset unless given here.
    std::map<std::string, std::string> environment;
};

ProgramResult runProgram(const ProgramRun& run);
ProgramResult runZyvo(const std::vector<std::string>& args);

// A fresh folder for one test, removed with the object.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path operator/(const std::string& name) const { return m_path / name; }
    // Writes a file below the folder and returns its path.
    std::filesystem::path write(const std::string& name, const std::string& text) const;

private:
    std::filesystem::path m_path;
};

std::string readFile(const std::filesystem::path& file);
