#include "atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <optional>

namespace grainsmith::cli {
namespace {

// Permissions for a new output file: what open() with 0666 would give under the umask.
// mkstemp creates its file 0600, which would be wrong for a file meant to be shared.
mode_t newFileMode() {
    static const mode_t mode = [] {
        const mode_t mask = umask(0);
        umask(mask);
        return static_cast<mode_t>(0666 & ~mask);
    }();
    return mode;
}

// The temporary being written, removed by the signal handler. Only async-signal-safe calls
// happen in the handler: unlink, sigaction, raise.
char g_temporary[4096];
volatile sig_atomic_t g_armed = 0;
constexpr int kCleanupSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGXFSZ};

extern "C" void removeTemporaryAndDie(int signal) {
    if (g_armed) ::unlink(g_temporary);
    struct sigaction fallback {};
    fallback.sa_handler = SIG_DFL;
    ::sigaction(signal, &fallback, nullptr);
    ::raise(signal);  // delivered with the default action as the handler returns
}

// Removes the temporary on a signal for as long as it lives.
class SignalCleanup {
public:
    explicit SignalCleanup(const std::string& temporary) {
        if (temporary.size() >= sizeof g_temporary) return;
        std::memcpy(g_temporary, temporary.c_str(), temporary.size() + 1);
        struct sigaction action {};
        action.sa_handler = removeTemporaryAndDie;
        sigemptyset(&action.sa_mask);
        for (const int s : kCleanupSignals) sigaddset(&action.sa_mask, s);
        for (size_t i = 0; i < std::size(kCleanupSignals); ++i) ::sigaction(kCleanupSignals[i], &action, &saved_[i]);
        g_armed = 1;
        installed_ = true;
    }
    ~SignalCleanup() {
        if (!installed_) return;
        g_armed = 0;
        for (size_t i = 0; i < std::size(kCleanupSignals); ++i) ::sigaction(kCleanupSignals[i], &saved_[i], nullptr);
    }
    SignalCleanup(const SignalCleanup&) = delete;
    SignalCleanup& operator=(const SignalCleanup&) = delete;

private:
    struct sigaction saved_[std::size(kCleanupSignals)] {};
    bool installed_ = false;
};

bool writeInPlace(const std::string& path, const std::function<std::string(int fd)>& fill, std::string& error) {
    const int fd = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    std::string cause = fd < 0 ? std::strerror(errno) : fill(fd);
    if (fd >= 0 && ::close(fd) != 0 && cause.empty()) cause = std::strerror(errno);
    if (cause.empty()) return true;
    error = "cannot write '" + path + "': " + cause;
    return false;
}

std::string directoryOf(const std::string& path) {
    const size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

}  // namespace

std::string checkWritable(const std::string& path) {
    const std::string prefix = "cannot write '" + path + "': ";
    if (path.empty() || path.back() == '/') return prefix + "that is a directory name, not a file name";
    struct stat st {};
    if (::stat(path.c_str(), &st) == 0) {
        if (S_ISDIR(st.st_mode)) return prefix + "it is a directory";
        if (!S_ISREG(st.st_mode)) return ::access(path.c_str(), W_OK) == 0 ? "" : prefix + std::strerror(errno);
    }
    std::string probe = directoryOf(path) + "/.grainsmith-probe-XXXXXX";
    const int fd = ::mkstemp(probe.data());
    if (fd < 0) return prefix + std::strerror(errno);
    ::close(fd);
    ::unlink(probe.c_str());
    return {};
}

std::string writeAll(int fd, const void* data, size_t size) {
    const auto* bytes = static_cast<const unsigned char*>(data);
    while (size > 0) {
        const ssize_t written = ::write(fd, bytes, size);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return std::strerror(written < 0 ? errno : EIO);
        bytes += written;
        size -= static_cast<size_t>(written);
    }
    return {};
}

bool writeAtomically(const std::string& given, const std::function<std::string(int fd)>& fill, std::string& error) {
    // A destination that exists and is not a regular file (a terminal, a pipe, /dev/null) is
    // written in place: renaming over it would replace the device or pipe with a file.
    struct stat st {};
    if (::stat(given.c_str(), &st) == 0 && !S_ISREG(st.st_mode) && !S_ISDIR(st.st_mode))
        return writeInPlace(given, fill, error);
    // Through a symbolic link, the file it points to is replaced and the link stays.
    std::string path = given;
    if (::lstat(given.c_str(), &st) == 0 && S_ISLNK(st.st_mode)) {
        if (char* resolved = ::realpath(given.c_str(), nullptr)) {
            path = resolved;
            std::free(resolved);
        }
    }
    std::string temporary = path + ".tmp-XXXXXX";
    // Signals are held while the temporary is created and its cleanup armed, so that none
    // can leave it behind in between.
    sigset_t cleanupSignals, previous;
    sigemptyset(&cleanupSignals);
    for (const int s : kCleanupSignals) sigaddset(&cleanupSignals, s);
    ::sigprocmask(SIG_BLOCK, &cleanupSignals, &previous);
    const int fd = ::mkstemp(temporary.data());
    const int mkstempErrno = errno;
    std::optional<SignalCleanup> cleanup;
    if (fd >= 0) cleanup.emplace(temporary);
    ::sigprocmask(SIG_SETMASK, &previous, nullptr);
    if (fd < 0) {
        error = "cannot write '" + path + "': " + std::strerror(mkstempErrno);
        return false;
    }
    std::string cause;
    if (::fchmod(fd, newFileMode()) != 0) cause = std::strerror(errno);
    if (cause.empty()) cause = fill(fd);
    // Reach the disk before the rename, or a crash could leave an empty file at path.
    if (cause.empty() && ::fsync(fd) != 0) cause = std::strerror(errno);
    if (::close(fd) != 0 && cause.empty()) cause = std::strerror(errno);
    if (cause.empty() && std::rename(temporary.c_str(), path.c_str()) != 0) cause = std::strerror(errno);
    if (cause.empty()) return true;
    ::unlink(temporary.c_str());
    error = "cannot write '" + given + "': " + cause;
    return false;
}

}  // namespace grainsmith::cli
