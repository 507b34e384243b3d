#pragma once
// The per-user settings store: the values a workstation keeps for its user,
// read by application, section and key with a default. On Linux it is an INI
// file: the path in AVLOR_SETTINGS when that variable is set, otherwise
// $XDG_CONFIG_HOME/avlor/Avlor32.ini (~/.config/avlor/Avlor32.ini when
// XDG_CONFIG_HOME is unset). The application name picks the file; the file's
// [Shared] section holds the keys of section "Shared".
#include <filesystem>
#include <string>

namespace avlor {

class SettingsStore {
public:
    // Reads one value; a missing file, section or key gives `defaultValue`.
    [[nodiscard]] static std::string read(const std::string& application, const std::string& section,
                                          const std::string& key, const std::string& defaultValue);
    // Writes one value, creating the file and its folder when needed.
    static void write(const std::string& application, const std::string& section, const std::string& key,
                      const std::string& value);
    // The file that holds the settings of `application`.
    [[nodiscard]] static std::filesystem::path pathFor(const std::string& application);
};

inline constexpr const char* AppAvlor = "Avlor32";
inline constexpr const char* SezioneShared = "Shared";
inline constexpr const char* ChiaveIdUtente = "Id_Utente";

} // namespace avlor
