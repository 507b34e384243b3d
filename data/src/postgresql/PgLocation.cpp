#include "postgresql/PgLocation.h"

#include <algorithm>
#include <vector>

#include "avlor/core/Text.h"

namespace avlor {

namespace {

// Every text that may be the password of `location`: the user part after
// the first ':' up to the last '@' of the authority, and each "password="
// parameter, each as written and decoded; pieces of each around its '%', '@', ':' too,
// since libpq may quote the part of a token up to a bad escape.
std::vector<std::string> passwordForms(std::string_view location)
{
    std::vector<std::string> raw;
    const std::size_t scheme = location.find("://");
    if (scheme == std::string_view::npos) {
        return raw;
    }
    const std::size_t start = scheme + 3;
    const std::size_t authorityEnd = location.find_first_of("/?", start);
    const std::string_view authority =
        location.substr(start, authorityEnd == std::string_view::npos ? std::string_view::npos : authorityEnd - start);
    if (const std::size_t at = authority.rfind('@'); at != std::string_view::npos) {
        if (const std::size_t colon = authority.find(':'); colon != std::string_view::npos && colon < at) {
            raw.emplace_back(authority.substr(colon + 1, at - colon - 1));
        }
    } else if (const std::size_t colon = authority.find(':'); colon != std::string_view::npos) {
        // "postgresql://studio:Secr3tPw": a user and a password with the
        // "@host" left out, which libpq reads as a host and a port.
        raw.emplace_back(authority.substr(colon + 1));
    }
    for (std::size_t found = location.find("password=", start); found != std::string_view::npos;
         found = location.find("password=", found + 1)) {
        const std::size_t value = found + 9;
        const std::size_t end = location.find('&', value);
        raw.emplace_back(location.substr(value, end == std::string_view::npos ? std::string_view::npos : end - value));
    }
    std::vector<std::string> forms;
    for (const std::string& password : raw) {
        if (password.empty()) {
            continue;
        }
        forms.push_back(password);
        forms.push_back(percentDecoded(password));
        // libpq splits a URI at the first '@' and ':' and stops at a bad
        // escape, so it may quote any piece between them.
        for (std::size_t cut = password.find_first_of("%@:/?&="); cut != std::string::npos;
             cut = password.find_first_of("%@:/?&=", cut + 1)) {
            forms.push_back(password.substr(0, cut));
            forms.push_back(password.substr(cut + 1));
        }
    }
    return forms;
}

} // namespace

std::string withoutPgPassword(std::string message, std::string_view location)
{
    std::vector<std::string> forms = passwordForms(location);
    // The longest first, so that a piece never leaves the rest of a longer
    // form behind.
    std::sort(forms.begin(), forms.end(),
              [](const std::string& a, const std::string& b) { return a.size() > b.size(); });
    for (const std::string& form : forms) {
        if (form.size() < 3) {
            continue; // too short to be told from the message's own words
        }
        for (std::size_t found = message.find(form); found != std::string::npos;
             found = message.find(form, found + 3)) {
            message.replace(found, form.size(), "***");
        }
    }
    return message;
}

bool isPgLocation(std::string_view location) noexcept
{
    return location.starts_with("postgresql://") || location.starts_with("postgres://");
}

std::string shownPgLocation(std::string_view location)
{
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
    } else {
        // Without "@", what follows a ':' of the authority may be a password
        // written with the host left out ("postgresql://studio:Secr3tPw"): it
        // is hidden like one, even where it is only a port.
        const std::size_t end = authorityEnd == std::string::npos ? shown.size() : authorityEnd;
        const std::size_t colon = shown.find(':', start);
        if (colon != std::string::npos && colon < end && colon + 1 < end) {
            shown.replace(colon + 1, end - colon - 1, "***");
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
