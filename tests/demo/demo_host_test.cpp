// The demo host on a private X server: a scripted editor session (pick a kind, turn the
// placement, the preview follows, OK) that leaves a screenshot for a person to look at, and
// the messages it gives for record files it cannot use.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <string>
#include <thread>

#include "support/private_x_server.h"

namespace {

const bool kServer = grainsmith::testing::usePrivateXServer("1400x900x24");

struct Outcome {
    int status = -1;
    std::string errors;
};

// Runs the demo host with `args`, killing it after `seconds`; collects its standard error.
Outcome runDemo(std::vector<std::string> args, int seconds = 90) {
    // Per process: ctest runs the tests of this program side by side.
    const std::string log = ::testing::TempDir() + "demo-host-stderr-" + std::to_string(getpid()) + ".txt";
    const pid_t child = fork();
    if (child == 0) {
        const int fd = open(log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        dup2(fd, 2);
        setenv("LSAN_OPTIONS", GRAINSMITH_LSAN_QT_OPTIONS, 1);
        std::vector<char*> argv{const_cast<char*>(GRAINSMITH_DEMO_HOST_PATH)};
        for (std::string& a : args) argv.push_back(a.data());
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }
    Outcome run;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (waitpid(child, &run.status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > deadline) {
            kill(child, SIGKILL);
            waitpid(child, &run.status, 0);
            run.errors = "killed after timeout";
            return run;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    std::ifstream in(log);
    run.errors.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    unlink(log.c_str());
    return run;
}

bool exitedWith(const Outcome& r, int code) { return WIFEXITED(r.status) && WEXITSTATUS(r.status) == code; }

TEST(DemoHost, ItsPreviewFollowsAnEditorSessionAndItsScreenshotIsWritten) {
    const std::string shot = GRAINSMITH_SCREENSHOT_PATH;
    unlink(shot.c_str());
    const Outcome r = runDemo({"--screenshot", shot});
    EXPECT_TRUE(exitedWith(r, 0)) << r.errors;
    struct stat s {};
    ASSERT_EQ(stat(shot.c_str(), &s), 0) << "no screenshot at " << shot;
    EXPECT_GT(s.st_size, 20000) << "the screenshot looks empty";
}

TEST(DemoHost, SaysWhatIsWrongWithARecordFile) {
    const std::string path = ::testing::TempDir() + "bad-record-" + std::to_string(getpid()) + ".rec";
    const auto check = [&](const std::string& bytes, const std::string& message) {
        std::ofstream(path, std::ios::binary) << bytes;
        const Outcome r = runDemo({"--record", path}, 60);
        EXPECT_TRUE(exitedWith(r, 1)) << r.errors;
        EXPECT_NE(r.errors.find(message), std::string::npos) << r.errors;
    };
    check(std::string(10, 'x'), "it has 10 bytes, a record has 36 to 127");
    std::string wrongSize(48, '\0');
    wrongSize[0] = 40;
    check(wrongSize, "its size byte says 40 bytes, the file has 48");
    std::string unknown(48, '\0');
    unknown[0] = 48;
    unknown.replace(1, 10, "Not A Kind");
    check(unknown, "a kind this plug-in does not render");
    const Outcome missing = runDemo({"--record", path + ".missing"}, 60);
    EXPECT_TRUE(exitedWith(missing, 1));
    EXPECT_NE(missing.errors.find("Cannot read"), std::string::npos) << missing.errors;
    unlink(path.c_str());
}

}  // namespace
