#include "FileText.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>

#include "avlor/core/Error.h"

namespace avlor::tariffe_detail {

std::string readFileText(const std::filesystem::path& path)
{
    std::error_code code;
    if (std::filesystem::is_directory(path, code))
        throw Error("Impossibile leggere " + path.string() + ": è una cartella");
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw Error("Impossibile leggere " + path.string() + ": " + std::strerror(errno));
    std::ostringstream text;
    text << in.rdbuf();
    if (in.bad())
        throw Error("Impossibile leggere " + path.string() + ": " + std::strerror(errno));
    return text.str();
}

} // namespace avlor::tariffe_detail
