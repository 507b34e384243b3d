#pragma once
// Runs the avlor command as a user runs it from a shell: words quoted for the
// shell, extra environment settings in front, standard input from a file when
// given, standard output and standard error kept apart, and the exit status.
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace avlor::testing {

struct Outcome {
    int status = -1;
    std::string out; // standard output
    std::string err; // standard error
};

inline std::string shellQuoted(const std::string& word)
{
    std::string q = "'";
    for (char c : word) {
        if (c == '\'')
            q += "'\\''";
        else
            q += c;
    }
    return q + "'";
}

inline std::string fileText(const std::filesystem::path& p)
{
    std::ifstream in(p, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// `environment`: NAME=VALUE settings for this run only; `input`: a file read
// as standard input (none when empty); `scratch`: a folder for the captured
// standard error.
inline Outcome runCommand(const std::string& program, const std::vector<std::string>& words,
                          const std::vector<std::pair<std::string, std::string>>& environment,
                          const std::filesystem::path& scratch, const std::filesystem::path& input = {})
{
    std::string command;
    for (const auto& [name, value] : environment)
        command += name + "=" + shellQuoted(value) + " ";
    command += shellQuoted(program);
    for (const auto& w : words)
        command += " " + shellQuoted(w);
    if (!input.empty())
        command += " <" + shellQuoted(input.string());
    const std::filesystem::path errFile = scratch / "stderr.txt";
    command += " 2>" + shellQuoted(errFile.string());
    Outcome run;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe)
        return run;
    std::array<char, 4096> buffer{};
    std::size_t n = 0;
    while ((n = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0)
        run.out.append(buffer.data(), n);
    const int raw = ::pclose(pipe);
    run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    run.err = fileText(errFile);
    return run;
}

} // namespace avlor::testing
