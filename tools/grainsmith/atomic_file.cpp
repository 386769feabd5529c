#include "atomic_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

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

}  // namespace

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

bool writeAtomically(const std::string& path, const std::function<std::string(int fd)>& fill, std::string& error) {
    std::string temporary = path + ".tmp-XXXXXX";
    const int fd = ::mkstemp(temporary.data());
    if (fd < 0) {
        error = "cannot write '" + path + "': " + std::strerror(errno);
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
    error = "cannot write '" + path + "': " + cause;
    return false;
}

}  // namespace grainsmith::cli
