#include "OutputFile.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Context.h"
#include "avlor/data/Database.h"

namespace avlor::cli {

namespace {

namespace fs = std::filesystem;

// A path made absolute from the working folder, with the links of the part
// that exists resolved: two spellings of one place give the same path.
fs::path resolved(const fs::path& path)
{
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    const fs::path canonical = fs::weakly_canonical(error ? path : absolute, error);
    return error ? absolute.lexically_normal() : canonical;
}

// The same file, whether or not it exists yet: by device and inode when it
// does, by its resolved path otherwise.
bool sameFile(const fs::path& a, const fs::path& b)
{
    std::error_code error;
    if (fs::exists(a, error) && fs::exists(b, error))
        return fs::equivalent(a, b, error);
    return resolved(a) == resolved(b);
}

[[noreturn]] void failed(const std::string& path, int failure)
{
    throw CommandError("impossibile scrivere " + path + ": " + std::strerror(failure) + "; il file è rimasto com'era");
}

} // namespace

void refuseDatabaseAsOutput(const std::string& output, const std::string& location)
{
    const std::string file = sqliteDatabaseFile(location);
    if (file.empty())
        return;
    // SQLite names its companion files after the database as reached through
    // its links: guard those of the name given and of the file it leads to.
    std::vector<std::string> guarded = {file};
    const std::string real = resolved(file).string();
    for (const std::string& name : {file, real}) {
        for (const std::string& companion : sqliteCompanionFiles(name))
            guarded.push_back(companion);
    }
    for (const auto& g : guarded) {
        if (sameFile(output, g))
            throw CommandError("non scrivo " + output + ": è " +
                               (g == file ? "il database delle pratiche " + location
                                          : "un file di servizio del database delle pratiche (" + g + ")"));
    }
}

void writeWholeFile(const std::string& path, const std::string& text)
{
    const fs::path target(path);
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::string temporary = (folder / ("." + target.filename().string() + ".XXXXXX")).string();
    const int fd = ::mkstemp(temporary.data());
    if (fd < 0)
        failed(path, errno);
    // The new file keeps the rights of the one it replaces, or the usual
    // ones of a new file.
    struct stat old { };
    if (::stat(path.c_str(), &old) == 0) {
        (void)::fchmod(fd, old.st_mode & 07777);
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        (void)::fchmod(fd, 0666 & ~mask);
    }
    const char* next = text.data();
    std::size_t left = text.size();
    int failure = 0;
    while (left > 0) {
        const ssize_t n = ::write(fd, next, left);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            failure = errno;
            break;
        }
        next += n;
        left -= static_cast<std::size_t>(n);
    }
    if (failure == 0 && ::fsync(fd) != 0)
        failure = errno;
    if (::close(fd) != 0 && failure == 0)
        failure = errno;
    if (failure == 0 && ::rename(temporary.c_str(), path.c_str()) != 0)
        failure = errno;
    if (failure != 0) {
        ::unlink(temporary.c_str());
        failed(path, failure);
    }
}

} // namespace avlor::cli
