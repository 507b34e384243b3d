#include "avlor/ui/OpenWindow.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QThread>
#include <QTimer>

#include <array>
#include <cerrno>
#include <clocale>
#include <cstdlib>
#include <vector>

#include "avlor/core/Error.h"
#include "avlor/dialog/frmOKParcella.h"
#include "avlor/ui/FeeEntryWindow.h"

namespace avlor::ui {

namespace {

std::string environment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? std::string(value) : std::string();
}

std::vector<std::string> split(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t end = std::min(text.find(separator, start), text.size());
        if (end > start) {
            parts.push_back(text.substr(start, end - start));
        }
        start = end + 1;
    }
    return parts;
}

// Whether Qt can load the platform plugin called `platform` ("xcb",
// "wayland", "offscreen"...): its library in one of the folders Qt looks in.
bool platformInstalled(const std::string& platform)
{
    QStringList folders;
    for (const std::string& folder : split(environment("QT_QPA_PLATFORM_PLUGIN_PATH"), ':')) {
        folders << QString::fromStdString(folder);
    }
    for (const std::string& folder : split(environment("QT_PLUGIN_PATH"), ':')) {
        folders << QString::fromStdString(folder) + QStringLiteral("/platforms");
    }
    folders << QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms");
    const QString prefix = QStringLiteral("libq") + QString::fromStdString(platform);
    for (const QString& folder : folders) {
        for (const QString& file : QDir(folder).entryList({prefix + QStringLiteral("*.so")}, QDir::Files)) {
            static_cast<void>(file);
            return true;
        }
    }
    return false;
}

// Whether the X server of `display` accepts a connection, asked the way Qt's
// own X platform asks (through libxcb, loaded only for the question).
bool xDisplayAnswers(const std::string& display)
{
    void* xcb = dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
    if (xcb == nullptr) {
        return false;
    }
    using Connect = void* (*)(const char*, int*);
    using HasError = int (*)(void*);
    using Disconnect = void (*)(void*);
    const auto connectTo = reinterpret_cast<Connect>(dlsym(xcb, "xcb_connect"));
    const auto hasError = reinterpret_cast<HasError>(dlsym(xcb, "xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<Disconnect>(dlsym(xcb, "xcb_disconnect"));
    bool answers = false;
    if (connectTo != nullptr && hasError != nullptr && disconnect != nullptr) {
        int screen = 0;
        void* connection = connectTo(display.c_str(), &screen);
        answers = connection != nullptr && hasError(connection) == 0;
        if (connection != nullptr) {
            disconnect(connection);
        }
    }
    dlclose(xcb);
    return answers;
}

std::optional<std::string> platformProblem(const std::string& platform)
{
    if (!platformInstalled(platform)) {
        return "la piattaforma Qt \"" + platform + "\" non è installata";
    }
    if (platform == "xcb") {
        const std::string display = environment("DISPLAY");
        if (display.empty()) {
            return std::string("nessuno schermo X è indicato (DISPLAY è vuota)");
        }
        if (!xDisplayAnswers(display)) {
            return "lo schermo X \"" + display + "\" non risponde";
        }
    } else if (platform.rfind("wayland", 0) == 0) {
        if (environment("WAYLAND_DISPLAY").empty()) {
            return std::string("nessuno schermo Wayland è indicato (WAYLAND_DISPLAY è vuota)");
        }
    }
    return std::nullopt;
}

// Whether `folder` is a folder (not a link to one) of this user's that no one
// else may enter; one of this user's with looser rights is made so.
bool privateFolder(const std::string& folder)
{
    const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0) {
        return false;
    }
    struct stat info { };
    bool ok = ::fstat(fd, &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == ::geteuid();
    if (ok && (info.st_mode & 07777) != S_IRWXU) {
        ok = ::fchmod(fd, S_IRWXU) == 0;
    }
    ::close(fd);
    return ok;
}

// This user's name, or the number when the system knows no name for it.
std::string userName()
{
    std::array<char, 4096> buffer{};
    struct passwd entry { };
    struct passwd* found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr &&
        found->pw_name != nullptr && *found->pw_name != '\0') {
        return found->pw_name;
    }
    return std::to_string(::geteuid());
}

// Qt keeps the files of a session (sockets, locks) in the folder named by
// XDG_RUNTIME_DIR. A desktop session names one; a shell without a session
// (ssh, a service, a test) does not, and Qt then falls back to
// "runtime-USER" in the temporary folder by itself, with a warning on
// standard error at every opening. The window's own application names that
// same private folder beforehand (made mode 0700 when missing), so that Qt
// finds what it asks for and opening the window says nothing when all is
// well. Silencing Qt's messages instead would hide real problems: every other
// message of Qt still reaches standard error. Should that folder not be this
// user's private one (another user made it first), a new private folder is
// made instead. The variable is put back as it was once the application has
// gone, as the locale is.
class RuntimeFolder {
public:
    RuntimeFolder()
    {
        const char* current = std::getenv("XDG_RUNTIME_DIR");
        if (current != nullptr && *current != '\0') {
            return;
        }
        wasEmpty_ = current != nullptr;
        const std::string temporary = QDir::tempPath().toStdString();
        std::string folder = temporary + "/runtime-" + userName();
        if (::mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
            folder.clear();
        }
        if (folder.empty() || !privateFolder(folder)) {
            std::string pattern = temporary + "/avlor-runtime-XXXXXX";
            folder = ::mkdtemp(pattern.data()) != nullptr ? pattern : std::string();
        }
        if (folder.empty()) {
            return; // Qt says what it makes of it
        }
        ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
        named_ = true;
    }
    ~RuntimeFolder()
    {
        if (!named_) {
            return;
        }
        if (wasEmpty_) {
            ::setenv("XDG_RUNTIME_DIR", "", 1);
        } else {
            ::unsetenv("XDG_RUNTIME_DIR");
        }
    }
    RuntimeFolder(const RuntimeFolder&) = delete;
    RuntimeFolder& operator=(const RuntimeFolder&) = delete;

private:
    bool named_ = false;
    bool wasEmpty_ = false;
};

// The application made for a host that runs none, for the time the window is
// open. Qt sets the C library's locale from the environment when it starts;
// the locale the host had is put back, so that the host's own reading and
// writing of numbers does not change under it.
class OwnApplication {
public:
    OwnApplication()
    {
        const char* current = std::setlocale(LC_ALL, nullptr);
        const std::string locale = current != nullptr ? current : "C";
        application_ = std::make_unique<QApplication>(argc_, argv_);
        std::setlocale(LC_ALL, locale.c_str());
    }

private:
    static inline int argc_ = 1;
    static inline char name_[] = "avlorlogic";
    static inline char* argv_[] = {name_, nullptr};
    // Made before the application and put back after it.
    RuntimeFolder runtime_;
    std::unique_ptr<QApplication> application_;
};

std::string cannotShow(const std::string& why)
{
    return std::string("Il dialogo \"") + dialog::CaptionDialogo + "\" non si può mostrare: " + why + ".";
}

} // namespace

std::optional<std::string> displayProblem()
{
    std::vector<std::string> platforms;
    for (const std::string& choice : split(environment("QT_QPA_PLATFORM"), ';')) {
        // "name:option=value" names the platform before the colon.
        platforms.push_back(choice.substr(0, choice.find(':')));
    }
    if (platforms.empty()) {
        if (!environment("DISPLAY").empty()) {
            platforms.push_back("xcb");
        } else if (!environment("WAYLAND_DISPLAY").empty()) {
            platforms.push_back("wayland");
        } else {
            return std::string("non c'è uno schermo (DISPLAY, WAYLAND_DISPLAY e QT_QPA_PLATFORM non sono impostate)");
        }
    }
    // Qt tries the platforms in turn: one that can start is enough.
    std::optional<std::string> first;
    for (const std::string& platform : platforms) {
        auto problem = platformProblem(platform);
        if (!problem) {
            return std::nullopt;
        }
        if (!first) {
            first = problem;
        }
    }
    return first;
}

void showFeeEntryWindow(const FeeEntryRequest& request)
{
    std::unique_ptr<OwnApplication> own;
    if (QCoreApplication* running = QCoreApplication::instance()) {
        if (qobject_cast<QApplication*>(running) == nullptr) {
            throw Error(cannotShow("il programma ospite usa un'applicazione Qt senza widget (serve una QApplication)"));
        }
        if (QThread::currentThread() != running->thread()) {
            throw Error(
                cannotShow("è aperto da un thread diverso da quello dell'applicazione Qt del programma ospite"));
        }
    } else {
        if (const auto problem = displayProblem()) {
            throw Error(cannotShow(*problem));
        }
        own = std::make_unique<OwnApplication>();
    }

    dialog::frmOKParcella dialog(request.clock);
    FeeEntryWindow window(dialog);
    if (!window.start(request.idPratica, request.parti, request.adempimento, request.data)) {
        return;
    }
    // Automated tests of hosts close the window after a while, as a user
    // would.
    const std::string closeAfter = environment("AVLOR_UI_CLOSE_AFTER_MS");
    if (!closeAfter.empty()) {
        const int ms = std::atoi(closeAfter.c_str());
        QTimer::singleShot(ms > 0 ? ms : 0, &window, &QDialog::reject);
    }
    window.exec();
}

} // namespace avlor::ui
