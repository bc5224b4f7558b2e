#include "ProgramRunner.h"

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string drain(const std::filesystem::path& file) {
    std::string text = readFile(file);
    std::filesystem::remove(file);
    return text;
}

} // namespace

ProgramResult runProgram(const ProgramRun& run) {
    const TempFolder streams;
    const std::filesystem::path outFile = streams / "out", errFile = streams / "err";
    const pid_t child = ::fork();
    if (child == 0) {
        const int out = ::open(outFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int err = ::open(errFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        ::dup2(out, STDOUT_FILENO);
        ::dup2(err, STDERR_FILENO);
        ::unsetenv("ZYVO_PLUG_IN_PATH");
        ::unsetenv("ZYVO_SCRIPT_PATH");
        for (const auto& [name, value] : run.environment)
            value.empty() ? ::unsetenv(name.c_str()) : ::setenv(name.c_str(), value.c_str(), 1);
        std::vector<std::string> words{run.program.string()};
        words.insert(words.end(), run.args.begin(), run.args.end());
        std::vector<char*> argv;
        for (std::string& word : words)
            argv.push_back(word.data());
        argv.push_back(nullptr);
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    ProgramResult result;
    int status = 0;
    if (child > 0 && ::waitpid(child, &status, 0) == child)
        result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    result.out = drain(outFile);
    result.err = drain(errFile);
    return result;
}

ProgramResult runZyvo(const std::vector<std::string>& args) {
    ProgramRun run;
    run.args = args;
    return runProgram(run);
}

TempFolder::TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zyvo-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()))
        m_path = pattern;
    else
        ADD_FAILURE() << "no temporary folder";
}

TempFolder::~TempFolder() {
    std::error_code error;
    std::filesystem::remove_all(m_path, error);
}

std::filesystem::path TempFolder::write(const std::string& name, const std::string& text) const {
    const std::filesystem::path file = m_path / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
    return file;
}

std::string readFile(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}
