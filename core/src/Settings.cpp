#include "avlor/core/Settings.h"

#include <INIReader.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string_view>
#include <system_error>
#include <vector>

#include "NumberText.h"
#include "avlor/core/Error.h"

namespace avlor {

namespace {

std::string environment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? std::string(value) : std::string();
}

std::filesystem::path homeFolder()
{
    if (std::string home = environment("HOME"); !home.empty())
        return home;
    if (const passwd* entry = getpwuid(getuid()); entry != nullptr && entry->pw_dir != nullptr)
        return entry->pw_dir;
    return ".";
}

std::vector<std::string> readLines(const std::filesystem::path& path)
{
    std::vector<std::string> lines;
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(std::move(line));
    }
    return lines;
}

// The name of a "[section]" line, if the line is one.
std::optional<std::string_view> sectionName(std::string_view line)
{
    line = trimBlanks(line);
    if (line.size() < 2 || line.front() != '[')
        return std::nullopt;
    const std::size_t close = line.find(']');
    if (close == std::string_view::npos)
        return std::nullopt;
    return trimBlanks(line.substr(1, close - 1));
}

// The key of a "key=value" (or "key: value") line, if the line is one.
std::optional<std::string_view> keyName(std::string_view line)
{
    line = trimBlanks(line);
    if (line.empty() || line.front() == ';' || line.front() == '#')
        return std::nullopt;
    const std::size_t separator = line.find_first_of("=:");
    if (separator == std::string_view::npos)
        return std::nullopt;
    return trimBlanks(line.substr(0, separator));
}

void requireSingleLine(const std::string& text, const char* what, std::string_view forbidden)
{
    if (text.find_first_of("\r\n") != std::string::npos || text.find_first_of(forbidden) != std::string::npos)
        throw UsageError(std::string("Impostazioni: ") + what + " \"" + text + "\" non si può registrare");
}

// Sets `key` of `section` in the lines of an INI file, leaving every other
// line (other sections, other keys, comments) as it was.
void setEntry(std::vector<std::string>& lines, const std::string& section, const std::string& key,
              const std::string& value)
{
    const std::string entry = key + "=" + value;
    std::optional<std::size_t> sectionStart;
    std::size_t insertAt = lines.size();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (const auto name = sectionName(lines[i])) {
            if (sectionStart)
                break; // the end of our section
            if (detail::equalsIgnoreCase(*name, section)) {
                sectionStart = i;
                insertAt = i + 1;
            }
            continue;
        }
        if (!sectionStart)
            continue;
        if (const auto name = keyName(lines[i]); name && detail::equalsIgnoreCase(*name, key)) {
            lines[i] = entry;
            return;
        }
        if (!trimBlanks(lines[i]).empty())
            insertAt = i + 1;
    }
    if (sectionStart) {
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(insertAt), entry);
        return;
    }
    if (!lines.empty() && !trimBlanks(lines.back()).empty())
        lines.emplace_back();
    lines.push_back("[" + section + "]");
    lines.push_back(entry);
}

} // namespace

std::filesystem::path SettingsStore::pathFor(const std::string& application)
{
    if (std::string explicitPath = environment("AVLOR_SETTINGS"); !explicitPath.empty())
        return explicitPath;
    const std::string fileName = application + ".ini";
    if (std::string configHome = environment("XDG_CONFIG_HOME"); !configHome.empty())
        return std::filesystem::path(configHome) / "avlor" / fileName;
    return homeFolder() / ".config" / "avlor" / fileName;
}

std::string SettingsStore::read(const std::string& application, const std::string& section, const std::string& key,
                                const std::string& defaultValue)
{
    const std::filesystem::path path = pathFor(application);
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec))
        return defaultValue;
    // A line that is neither a section, a key nor a comment is skipped and
    // the rest of the file is still read: a stray line elsewhere must never
    // change a value that the file does hold (who the current user is, say).
    // The first such line is reported so that someone can mend the file.
    const INIReader reader(path.string());
    if (reader.ParseError() < 0)
        return defaultValue; // the file could not be read at all
    if (reader.ParseError() > 0)
        std::cerr << "Impostazioni: la riga " << reader.ParseError() << " di " << path.string()
                  << " non è né una sezione né una riga chiave=valore e viene ignorata\n";
    return reader.Get(section, key, defaultValue);
}

void SettingsStore::write(const std::string& application, const std::string& section, const std::string& key,
                          const std::string& value)
{
    requireSingleLine(section, "la sezione", "[]");
    requireSingleLine(key, "la chiave", "=:[;#");
    requireSingleLine(value, "il valore", "");
    if (trimBlanks(section).empty() || trimBlanks(key).empty())
        throw UsageError("Impostazioni: la sezione e la chiave non possono essere vuote");

    const std::filesystem::path path = pathFor(application);
    std::vector<std::string> lines;
    std::error_code ec;
    if (std::filesystem::exists(path, ec))
        lines = readLines(path);
    setEntry(lines, section, key, value);

    if (path.has_parent_path())
        std::filesystem::create_directories(path.parent_path());
    // Written beside the file and renamed over it, so that a reader never sees
    // a file half written.
    std::filesystem::path temporary = path;
    temporary += ".tmp";
    {
        std::ofstream out(temporary, std::ios::trunc);
        for (const std::string& line : lines)
            out << line << '\n';
        out.flush();
        if (!out)
            throw SettingsError("Impostazioni: impossibile scrivere " + temporary.string());
    }
    std::filesystem::rename(temporary, path);
}

} // namespace avlor
