// The grainsmith tool run as a user runs it: arguments in, files, output and exit status out.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct Result {
    int status;
    std::string out, err;
};

std::string slurp(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

class Cli : public ::testing::Test {
protected:
    void SetUp() override {
        char tmpl[] = "/tmp/grainsmith-cli-XXXXXX";
        dir = mkdtemp(tmpl);
    }
    void TearDown() override { fs::remove_all(dir); }

    // Runs the tool with shell-quoted arguments and optional standard input.
    Result run(const std::string& args, const std::string& input = "") {
        const fs::path in = dir / "stdin", out = dir / "stdout", err = dir / "stderr";
        std::ofstream(in) << input;
        const std::string cmd = std::string(GRAINSMITH_CLI_PATH) + " " + args + " <" + in.string() + " >" +
                                out.string() + " 2>" + err.string();
        const int raw = std::system(cmd.c_str());
        return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, slurp(out), slurp(err)};
    }
    std::string path(const char* name) { return (dir / name).string(); }

    fs::path dir;
};

}  // namespace

TEST_F(Cli, ListShowsTheWholeCatalogue) {
    const Result r = run("list");
    ASSERT_EQ(r.status, 0) << r.err;
    int lines = 0;
    for (char c : r.out) lines += c == '\n';
    EXPECT_EQ(lines, 36);  // header, 34 kinds and the SIMD level
    EXPECT_NE(r.out.find("batch evaluation SIMD level: "), std::string::npos);
    EXPECT_NE(r.out.find("HexTile"), std::string::npos);
    EXPECT_NE(r.out.find("Penrose Rhombus"), std::string::npos);
}

TEST_F(Cli, RecordWritesTheExactBytesAndShowReadsThemBack) {
    const std::string file = path("c.rec");
    Result r = run("record Checkerboard --set depth=3 --set randomizeColors=on --set variability=0.25 -o " + file);
    ASSERT_EQ(r.status, 0) << r.err;
    const std::string bytes = slurp(file);
    ASSERT_EQ(bytes.size(), 48u);
    EXPECT_EQ(bytes[0], 48);
    EXPECT_STREQ(bytes.data() + 1, "Checkerboard");
    EXPECT_EQ(bytes[33], 3);
    EXPECT_EQ(bytes[34], 0);
    EXPECT_EQ(bytes[35], 1);
    int32_t depth;
    std::memcpy(&depth, bytes.data() + 36, 4);
    EXPECT_EQ(depth, 3);
    EXPECT_EQ(bytes[40], 1);
    float variability;
    std::memcpy(&variability, bytes.data() + 44, 4);
    EXPECT_EQ(variability, 0.25f);

    r = run("show " + file);
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "kind = Checkerboard\nrecordSize = 48\nversion = 3.0\ninteractiveUpdate = true\n"
              "depth = 3\nrandomizeColors = true\nvariability = 0.25\n");
}

TEST_F(Cli, EvalPrintsOneValuePerPoint) {
    Result r = run("eval Checkerboard --hex", "0.5 0.5 0.5\n\n# comment\n1.5 0.5 0.5\n");
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "0x3E800000\n0x3F400000\n");
    r = run("eval Constant --set constant=0.1", "1 2 3\n");
    EXPECT_EQ(r.out, "0.1\n");

    const std::string file = path("g.rec");
    ASSERT_EQ(run("record Gradient --set yDir=false --set zDir=no -o " + file).status, 0);
    std::ofstream(path("points")) << "1.5 0 0\n-3 7 7\n";
    r = run("eval --record " + file + " --points " + path("points"));
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "0.25\n1\n");
}

TEST_F(Cli, BadInputFailsClearlyAndWritesNothing) {
    const std::string out = path("out.rec");
    struct Case {
        std::string args, needle;
        int status;
    };
    const Case cases[] = {
        {"record Marble -o " + out, "Checkerboard", 2},                       // unknown kind lists the kinds
        {"record Checkerboard --set size=2 -o " + out, "depth, ", 2},         // unknown parameter lists them
        {"record Checkerboard --set depth=abc -o " + out, "whole number", 2},
        {"record Checkerboard --set depth=99999999999 -o " + out, "whole number", 2},
        {"record Checkerboard --set variability=1e40 -o " + out, "single-precision", 2},
        {"record Checkerboard --set depth -o " + out, "NAME=VALUE", 2},
        {"record Checkerboard", "-o", 2},
        {"record Checkerboard -o " + path("missing/dir/x.rec"), "missing/dir/x.rec", 1},
        {"frobnicate", "unknown command", 2},
        {"render Checkerboard --size 0 -o " + path("x.png"), "--size", 2},
        {"eval Checkerboard --flags two", "--flags", 2},
    };
    for (const Case& c : cases) {
        const Result r = run(c.args);
        EXPECT_EQ(r.status, c.status) << c.args;
        EXPECT_NE(r.err.find(c.needle), std::string::npos) << c.args << "\n" << r.err;
        EXPECT_FALSE(fs::exists(out)) << c.args;
    }
    EXPECT_FALSE(fs::exists(dir / "missing"));
}

TEST_F(Cli, BadRecordsAndPointsAreNamed) {
    const std::string good = path("good.rec");
    ASSERT_EQ(run("record Constant -o " + good).status, 0);
    std::string bytes = slurp(good);

    std::ofstream(path("short.rec"), std::ios::binary) << bytes.substr(0, 39);
    Result r = run("show " + path("short.rec"));
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("wrong size"), std::string::npos) << r.err;

    std::string unknown = bytes;
    std::memcpy(unknown.data() + 1, "Plasma", 7);
    std::ofstream(path("unknown.rec"), std::ios::binary) << unknown;
    r = run("show " + path("unknown.rec"));
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("unknown kind 'Plasma'"), std::string::npos) << r.err;

    std::string newer = bytes;
    newer[34] = 1;
    std::ofstream(path("newer.rec"), std::ios::binary) << newer;
    r = run("eval --record " + path("newer.rec"), "0 0 0\n");
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("version 2.1"), std::string::npos) << r.err;

    r = run("eval Constant", "0 0 0\n1 2\n");
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("line 2"), std::string::npos) << r.err;
    EXPECT_EQ(r.out, "");  // nothing printed before the bad line was found
}

TEST_F(Cli, FailedWriteKeepsTheOldFile) {
    const std::string file = path("keep.png");
    std::ofstream(file) << "old";
    const Result r = run("render Nope -o " + file);
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(slurp(file), "old");
}

TEST_F(Cli, RenderAndGalleryWritePngs) {
    const std::string png = path("slice.png");
    Result r = run("render Checkerboard --size 16 --extent 2 -o " + png);
    ASSERT_EQ(r.status, 0) << r.err;
    const std::string bytes = slurp(png);
    ASSERT_GT(bytes.size(), 8u);
    EXPECT_EQ(bytes.substr(1, 3), "PNG");
    r = run("gallery --size 24 -o " + path("gallery.png"));
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(slurp(path("gallery.png")).substr(1, 3), "PNG");
    EXPECT_NE(r.err.find("Checkerboard"), std::string::npos);  // progress names each kind
}

TEST_F(Cli, EveryCommandHasHelp) {
    for (const char* cmd : {"--help", "list --help", "record --help", "show --help", "eval --help",
                            "render --help", "gallery --help"}) {
        const Result r = run(cmd);
        EXPECT_EQ(r.status, 0) << cmd;
        EXPECT_NE(r.out.find("usage: grainsmith"), std::string::npos) << cmd;
    }
}
