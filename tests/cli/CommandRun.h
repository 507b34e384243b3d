#pragma once
// Runs the avlor command as a user runs it, from a shell, and collects its
// exit status and both outputs.
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace avlor::test {

struct CommandOutcome {
    int status = -1; // exit status; 128 + signal number when killed by one
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

struct RunOptions {
    std::string shellBefore; // run in the same shell first, e.g. "ulimit -f 1;"
    std::string environment; // further NAME=value words (quoted), e.g. another AVLOR_TARIFFE_DIR
    std::string wrapper; // a program that runs the command, e.g. "setpriv --reuid=65534 ..."
};

// Standard error is collected through a file in `scratch`.
inline CommandOutcome runAvlor(const std::vector<std::string>& words, const std::filesystem::path& scratch,
                               const RunOptions& options = {})
{
    std::string command = options.shellBefore + " AVLOR_TARIFFE_DIR=" + shellQuoted(AVLOR_TARIFFE) +
        " AVLOR_DB= " + options.environment + " " + options.wrapper + " " + shellQuoted(AVLOR_COMMAND);
    for (const auto& w : words)
        command += " " + shellQuoted(w);
    const std::filesystem::path errFile = scratch / ("stderr-" + std::to_string(::getpid()) + ".txt");
    command = "(" + command + ") 2>" + shellQuoted(errFile.string()) + "; echo \"#$?\"";
    CommandOutcome run;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr)
        return run;
    std::array<char, 4096> buffer{};
    std::size_t n = 0;
    while ((n = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0)
        run.out.append(buffer.data(), n);
    ::pclose(pipe);
    // The last line "#N" is the command's status as the shell saw it.
    const std::size_t mark = run.out.rfind('#');
    if (mark != std::string::npos) {
        run.status = std::stoi(run.out.substr(mark + 1));
        run.out.resize(mark);
    }
    run.err = fileText(errFile);
    std::filesystem::remove(errFile);
    return run;
}

} // namespace avlor::test
