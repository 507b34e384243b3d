#include "postgresql/PgLocation.h"

namespace avlor {

bool isPgLocation(std::string_view location) noexcept {
    return location.starts_with("postgresql://") || location.starts_with("postgres://");
}

std::string shownPgLocation(std::string_view location) {
    std::string shown(location);
    const std::size_t scheme = shown.find("://");
    if (scheme == std::string::npos) {
        return shown;
    }
    const std::size_t start = scheme + 3;
    const std::size_t authorityEnd = shown.find_first_of("/?", start);
    const std::size_t at = shown.rfind('@', authorityEnd == std::string::npos ? std::string::npos : authorityEnd);
    if (at != std::string::npos && at >= start) {
        const std::size_t colon = shown.find(':', start);
        if (colon != std::string::npos && colon < at) {
            shown.replace(colon + 1, at - colon - 1, "***");
        }
    }
    for (std::size_t found = shown.find("password=", start); found != std::string::npos;
         found = shown.find("password=", found + 1)) {
        if (found > 0 && shown[found - 1] != '?' && shown[found - 1] != '&') {
            continue;
        }
        const std::size_t value = found + 9;
        const std::size_t end = shown.find('&', value);
        shown.replace(value, (end == std::string::npos ? shown.size() : end) - value, "***");
    }
    return shown;
}

} // namespace avlor
