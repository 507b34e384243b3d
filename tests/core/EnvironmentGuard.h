#pragma once
// Saves environment variables when built and puts them back as they were
// (set or unset) when destroyed, so that a test can change them freely.
#include <cstdlib>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace avlor::test {

class EnvironmentGuard {
public:
    EnvironmentGuard(std::initializer_list<const char*> names)
    {
        for (const char* name : names) {
            const char* value = std::getenv(name);
            saved_.emplace_back(name, value ? std::optional<std::string>(value) : std::nullopt);
        }
    }
    ~EnvironmentGuard()
    {
        for (const auto& [name, value] : saved_) {
            if (value)
                ::setenv(name.c_str(), value->c_str(), 1);
            else
                ::unsetenv(name.c_str());
        }
    }
    EnvironmentGuard(const EnvironmentGuard&) = delete;
    EnvironmentGuard& operator=(const EnvironmentGuard&) = delete;

    static void set(const char* name, const std::string& value) { ::setenv(name, value.c_str(), 1); }
    static void unset(const char* name) { ::unsetenv(name); }

private:
    std::vector<std::pair<std::string, std::optional<std::string>>> saved_;
};

} // namespace avlor::test
