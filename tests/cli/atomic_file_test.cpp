// The all-or-nothing writer when the process is told to stop in the middle of a write: the
// temporary goes, and the process ends by that very signal, as if it had no handler.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>

#include "atomic_file.h"

namespace fs = std::filesystem;
using namespace grainsmith::cli;

namespace {

// Runs writeAtomically in a child whose `fill` writes some bytes and then gets `signal`
// (sent to itself, or raised by the kernel for SIGXFSZ); returns the child's wait status.
int interruptedWrite(const fs::path& file, int signal) {
    const pid_t child = fork();
    if (child == 0) {
        if (signal == SIGXFSZ) {
            const rlimit limit{100, 100};
            setrlimit(RLIMIT_FSIZE, &limit);
        }
        std::string error;
        writeAtomically(
            file.string(),
            [&](int fd) {
                const std::string bytes(1000, 'x');
                if (signal != SIGXFSZ) {
                    writeAll(fd, bytes.data(), 10);
                    kill(getpid(), signal);
                }
                return writeAll(fd, bytes.data(), bytes.size());
            },
            error);
        _exit(0);  // reached only when the signal did not end the process
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

}  // namespace

TEST(AtomicFile, InterruptedWriteRemovesItsTemporaryAndDiesBySignal) {
    char tmpl[] = "/tmp/grainsmith-atomic-XXXXXX";
    const fs::path dir = mkdtemp(tmpl);
    for (const int signal : {SIGINT, SIGTERM, SIGXFSZ}) {
        const int status = interruptedWrite(dir / "out.bin", signal);
        ASSERT_TRUE(WIFSIGNALED(status)) << "signal " << signal << ", status " << status;
        EXPECT_EQ(WTERMSIG(status), signal);
        EXPECT_TRUE(fs::is_empty(dir)) << "signal " << signal << " left " << fs::begin(fs::directory_iterator(dir))->path();
    }
    fs::remove_all(dir);
}

TEST(AtomicFile, WritabilityIsCheckedWithoutLeavingAnything) {
    char tmpl[] = "/tmp/grainsmith-atomic-XXXXXX";
    const fs::path dir = mkdtemp(tmpl);
    EXPECT_EQ(checkWritable((dir / "new.png").string()), "");
    EXPECT_NE(checkWritable((dir / "no/such/dir.png").string()).find("No such file"), std::string::npos);
    EXPECT_NE(checkWritable(dir.string()).find("is a directory"), std::string::npos);
    EXPECT_NE(checkWritable(dir.string() + "/").find("directory"), std::string::npos);
    EXPECT_TRUE(fs::is_empty(dir));
    fs::remove_all(dir);
}
