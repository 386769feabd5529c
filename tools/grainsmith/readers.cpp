#include "readers.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "core/param_text.h"

namespace grainsmith::cli {
namespace {

std::string quoted(const std::string& path) { return "'" + path + "'"; }

// Reads a descriptor to its end, or to more than `limit` bytes; "" or the failure's cause.
std::string readAll(int fd, size_t limit, std::vector<unsigned char>& bytes) {
    unsigned char buffer[65536];
    while (bytes.size() <= limit) {
        const ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::strerror(errno);
        if (got == 0) break;
        const size_t keep = std::min(static_cast<size_t>(got), limit + 1 - bytes.size());
        bytes.insert(bytes.end(), buffer, buffer + keep);
    }
    return {};
}

// The first `n` characters of a line, made printable, for a message.
std::string excerpt(std::string_view line) {
    constexpr size_t kShown = 60;
    return line.size() <= kShown ? std::string(line) : std::string(line.substr(0, kShown)) + "...";
}

}  // namespace

std::vector<unsigned char> readFileBytes(const std::string& path, size_t limit, const char* what) {
    if (path.empty()) usageError(std::string("an empty file name where ") + what + " was expected");
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) inputError("cannot read " + quoted(path) + ": " + std::strerror(errno));
    struct stat st {};
    if (::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode)) {
        ::close(fd);
        inputError(quoted(path) + " is a directory, not " + what);
    }
    std::vector<unsigned char> bytes;
    const std::string cause = readAll(fd, limit, bytes);
    ::close(fd);
    if (!cause.empty()) inputError("cannot read " + quoted(path) + ": " + cause);
    return bytes;
}

Record parseRecord(std::vector<unsigned char> bytes, const std::string& source) {
    const std::string accepted = "a description record has 36 to 255 bytes";
    if (bytes.empty()) inputError(source + " is empty; " + accepted);
    if (bytes.size() < sizeof(BaseData))
        inputError(source + " is not a description record: " + std::to_string(bytes.size()) + " bytes; " + accepted);
    if (bytes.size() > kMaxRecordBytes)
        inputError(source + " is not a description record: more than 255 bytes; " + accepted);
    const char* record = reinterpret_cast<const char*>(bytes.data());
    const std::string_view nameView = recordName(record);
    const std::string name(nameView);
    if (nameView.size() == sizeof(BaseData::name))
        inputError(source + " is not a description record: no zero byte ends the kind name in bytes 1 to 32");
    const Kind* kind = findKind(name);
    if (!kind) inputError(source + " names an unknown kind '" + name + "' ('grainsmith list' shows the kinds)");
    const BaseData& head = *reinterpret_cast<const BaseData*>(record);
    if (head.majorVersion != kind->majorVersion || head.minorVersion != kind->minorVersion)
        inputError(source + " holds version " + std::to_string(head.majorVersion) + "." +
                   std::to_string(head.minorVersion) + " of '" + name + "', but this version reads " +
                   std::to_string(kind->majorVersion) + "." + std::to_string(kind->minorVersion));
    if (bytes.size() != static_cast<size_t>(kind->recordSize) || head.recordSize != kind->recordSize)
        inputError(source + " has the wrong size for a '" + name + "' record: file " + std::to_string(bytes.size()) +
                   " bytes, size byte " + std::to_string(head.recordSize) + ", expected " +
                   std::to_string(kind->recordSize));
    if (!kind->implemented()) inputError("kind '" + name + "' is not implemented yet");
    return {kind, std::move(bytes)};
}

Record readRecordFile(const std::string& path) {
    return parseRecord(readFileBytes(path, kMaxRecordBytes, "a description record"), quoted(path));
}

std::vector<float> parsePoints(std::string_view text, const std::string& source) {
    std::vector<float> points;
    long lineNumber = 0;
    while (!text.empty()) {
        ++lineNumber;
        const size_t eol = text.find('\n');
        const std::string_view line = text.substr(0, eol);
        text = eol == std::string_view::npos ? std::string_view() : text.substr(eol + 1);

        std::vector<std::string_view> fields;
        for (size_t at = 0; at < line.size();) {
            const size_t start = line.find_first_not_of(" \t\r", at);
            if (start == std::string_view::npos) break;
            const size_t stop = std::min(line.find_first_of(" \t\r", start), line.size());
            fields.push_back(line.substr(start, stop - start));
            at = stop;
        }
        if (fields.empty() || fields[0][0] == '#') continue;
        const std::string where = source + " line " + std::to_string(lineNumber) + ": ";
        if (fields.size() != 3)
            inputError(where + "expected three numbers 'x y z' separated by spaces, got " +
                       std::to_string(fields.size()) + " field" + (fields.size() == 1 ? "" : "s") + " in '" +
                       excerpt(line) + "'");
        for (const std::string_view field : fields) {
            float v = 0.0f;
            std::string why;
            if (!parseFloat32(field, v, why))
                inputError(where + "'" + excerpt(field) + "' is not a single-precision number: " + why);
            points.push_back(v);
        }
    }
    return points;
}

std::vector<float> readPoints(const std::string& path) {
    if (!path.empty()) {
        const std::vector<unsigned char> bytes = readFileBytes(path, kMaxPointFileBytes, "a file of points");
        if (bytes.size() > kMaxPointFileBytes) inputError(quoted(path) + " is larger than 1 GiB; split the points");
        return parsePoints(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()), quoted(path));
    }
    std::vector<unsigned char> bytes;
    const std::string cause = readAll(STDIN_FILENO, kMaxPointFileBytes, bytes);
    if (!cause.empty()) inputError("cannot read standard input: " + cause);
    if (bytes.size() > kMaxPointFileBytes) inputError("standard input holds more than 1 GiB; split the points");
    return parsePoints(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()), "standard input");
}

}  // namespace grainsmith::cli
