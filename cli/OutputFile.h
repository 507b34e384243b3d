#pragma once
// Files the avlor command writes (an exported fee table). A file is written
// whole or not at all: the text goes to a temporary file beside it, which
// replaces the file in one step only once completely written and flushed to
// disk. A write that stops half-way (disk full, file-size limit) leaves the
// previous file as it was and no temporary file behind.
#include <string>

namespace avlor::cli {

// Raises CommandError when `output` is the practice database of `location`
// or one of its companion files (-wal, -shm, -journal), under any name that
// leads to the same file.
void refuseDatabaseAsOutput(const std::string& output, const std::string& location);

// Writes `text` to `path` whole or not at all (see above); raises
// CommandError saying what failed.
void writeWholeFile(const std::string& path, const std::string& text);

} // namespace avlor::cli
