// A private X server (Xvfb) for one test process, so window tests neither need nor disturb the
// user's display and can run in parallel: Xvfb picks a free display number itself (-displayfd)
// and dies with the test process. It never resets: an X server that resets when its last
// client leaves refuses connections for a moment, which made tests fail at random.
#pragma once

#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace grainsmith::testing {

class PrivateXServer : public ::testing::Environment {
public:
    explicit PrivateXServer(std::string screen = "1280x1024x24") : screen_(std::move(screen)) {}

    void SetUp() override {
        int fds[2];
        ASSERT_EQ(pipe(fds), 0);
        pid_ = fork();
        ASSERT_GE(pid_, 0);
        if (pid_ == 0) {
            prctl(PR_SET_PDEATHSIG, SIGTERM);
            close(fds[0]);
            const std::string fd = std::to_string(fds[1]);
            execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", screen_.c_str(), "-nolisten", "tcp",
                   "-noreset", static_cast<char*>(nullptr));
            _exit(127);
        }
        close(fds[1]);
        std::string number;
        pollfd p{fds[0], POLLIN, 0};
        char c = 0;
        while (poll(&p, 1, 20000) > 0 && read(fds[0], &c, 1) == 1 && c != '\n') number += c;
        close(fds[0]);
        ASSERT_FALSE(number.empty()) << "could not start Xvfb (is the xvfb package installed?)";
        setenv("DISPLAY", (":" + number).c_str(), 1);
        unsetenv("WAYLAND_DISPLAY");
    }

    void TearDown() override {
        if (pid_ > 0) {
            kill(pid_, SIGTERM);
            waitpid(pid_, nullptr, 0);
        }
    }

private:
    std::string screen_;
    pid_t pid_ = -1;
};

// Leak checking for programs that start Qt's X11 platform (see lsan_qt_platform.supp): the
// suppressions for this process, and the environment entry that passes them to a child.
#define GRAINSMITH_LSAN_QT_OPTIONS "suppressions=" GRAINSMITH_TEST_SUPPORT_DIR "/lsan_qt_platform.supp"

// Registers the server for the whole test program (call once, from a static initialiser).
inline bool usePrivateXServer(std::string screen = "1280x1024x24") {
    ::testing::AddGlobalTestEnvironment(new PrivateXServer(std::move(screen)));
    return true;
}

}  // namespace grainsmith::testing
