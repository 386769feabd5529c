// The grainsmith tool run as a user runs it: arguments in, files, output and exit status out.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
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
    EXPECT_EQ(r.err.find("error"), std::string::npos) << r.err;
}

TEST_F(Cli, EveryCommandHasHelp) {
    for (const char* cmd : {"--help", "list --help", "record --help", "show --help", "eval --help",
                            "render --help", "gallery --help"}) {
        const Result r = run(cmd);
        EXPECT_EQ(r.status, 0) << cmd;
        EXPECT_NE(r.out.find("usage: grainsmith"), std::string::npos) << cmd;
    }
}

// One bad file of each kind: a non-zero exit and one printable line that names the file and
// the problem; nothing is printed or written.
TEST_F(Cli, EveryBadRecordFileIsNamedInOnePrintableLine) {
    const std::string good = path("good.rec");
    ASSERT_EQ(run("record Constant -o " + good).status, 0);
    const std::string bytes = slurp(good);
    const auto file = [&](const char* name, const std::string& content) {
        std::ofstream(path(name), std::ios::binary) << content;
        return path(name);
    };
    std::string noZero = bytes;
    std::memset(noZero.data() + 1, 'C', 32);
    std::string binaryName = bytes;
    std::memcpy(binaryName.data() + 1, "\x1b[2J\xff", 6);
    std::string older = bytes;
    older[33] = 1;
    struct Case {
        std::string file, needle;
    };
    const Case cases[] = {
        {path("missing.rec"), "No such file"},
        {file("empty.rec", ""), "is empty"},
        {file("truncated.rec", bytes.substr(0, 20)), "20 bytes"},
        {file("short.rec", bytes.substr(0, 39)), "wrong size"},
        {file("oversized.rec", bytes + std::string(300, '\0')), "more than 255 bytes"},
        {file("older.rec", older), "version 1.0"},
        {file("unknown.rec", binaryName), "unknown kind '\\x1B[2J\\xFF'"},
        {file("nozero.rec", noZero), "no zero byte"},
        {dir.string(), "is a directory"},
        {"/proc/self/mem", "cannot read"},  // unreadable, even for root
    };
    for (const Case& c : cases) {
        for (const std::string& args : {"show " + c.file, "eval --record " + c.file, "render --record " + c.file +
                                                                                        " -o " + path("x.png")}) {
            const Result r = run(args, "0 0 0\n");
            EXPECT_EQ(r.status, 1) << args;
            EXPECT_EQ(r.out, "") << args;
            EXPECT_NE(r.err.find(c.needle), std::string::npos) << args << "\n" << r.err;
            EXPECT_NE(r.err.find(c.file), std::string::npos) << args << "\n" << r.err;
            EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
            for (const char ch : r.err) EXPECT_TRUE((ch >= 0x20 && ch < 0x7F) || ch == '\n') << args;
        }
    }
    EXPECT_FALSE(fs::exists(path("x.png")));
}

// Numbers in point files are read exactly as --set reads them.
TEST_F(Cli, PointsAreNumbersAsSetTakesThem) {
    struct Case {
        std::string input, needle;
    };
    const Case bad[] = {
        {"0 0 zero\n", "'zero' is not a single-precision number"},
        {"1 2\n", "got 2 fields"},
        {"1 2 3 4\n", "got 4 fields"},
        {"1,2,3\n", "got 1 field"},
        {"1, 2, 3\n", "'1,'"},
        {"0 0 1e39\n", "would become infinity"},
        {"0 1e-50 0\n", "would become 0"},
        {std::string("1 2 3\0 4\n", 9), "\\x00"},
        {std::string("1 2 3\0\n", 7), "'3\\x00'"},
        {"1 2 \x1b[31m\n", "'\\x1B[31m'"},
    };
    for (const Case& c : bad) {
        const Result r = run("eval Constant", "0.5 0.5 0.5\n" + c.input);
        EXPECT_EQ(r.status, 1) << c.needle;
        EXPECT_EQ(r.out, "") << c.needle;
        EXPECT_NE(r.err.find("standard input line 2: "), std::string::npos) << r.err;
        EXPECT_NE(r.err.find(c.needle), std::string::npos) << r.err;
        for (const char ch : r.err) EXPECT_TRUE((ch >= 0x20 && ch < 0x7F) || ch == '\n') << r.err;
    }
    // --set rejects and accepts the same texts.
    EXPECT_EQ(run("record Constant --set constant=1e39 -o " + path("a.rec")).status, 2);
    EXPECT_EQ(run("record Constant --set constant=1e-50 -o " + path("a.rec")).status, 2);
    EXPECT_EQ(run("record Constant --set constant=nan -o " + path("a.rec")).status, 0);
    // NaN, infinities and denormals are numbers (Constant's default is 0.5 everywhere).
    const Result r = run("eval Constant --hex", "NaN 0 0\n-inf 0 0\n1e-40 0 0\n0.25 -0 0x1p-3\n");
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "0x3F000000\n0x3F000000\n0x3F000000\n0x3F000000\n");

    std::ofstream(path("pts")) << "# header\n\n 1\t2 3 \r\n";
    EXPECT_EQ(run("eval Constant --points " + path("pts")).status, 0);
    Result d = run("eval Constant --points " + dir.string());
    EXPECT_EQ(d.status, 1);
    EXPECT_NE(d.err.find("is a directory"), std::string::npos) << d.err;
    d = run("eval Constant --points " + path("nope"));
    EXPECT_EQ(d.status, 1);
    EXPECT_NE(d.err.find("nope': No such file"), std::string::npos) << d.err;
}

// The output is checked before any rendering starts; nothing is left behind.
TEST_F(Cli, UnwritableOutputFailsBeforeTheWork) {
    for (const std::string& out : {path("missing/dir/g.png"), dir.string(), std::string("/proc/self/g.png")}) {
        const Result r = run("gallery --size 8 -o " + out);
        EXPECT_EQ(r.status, 1) << out;
        EXPECT_NE(r.err.find("cannot write '" + out + "'"), std::string::npos) << r.err;
        EXPECT_EQ(r.err.find("gallery: ["), std::string::npos) << "rendered before failing: " << r.err;
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 3);  // stdin, stdout, stderr
}

// A write cut short by the file size limit (SIGXFSZ) removes its temporary and ends the
// tool with that signal.
TEST_F(Cli, FileSizeLimitLeavesNoTemporary) {
    const std::string cmd = "ulimit -f 1; exec " + std::string(GRAINSMITH_CLI_PATH) +
                            " render 'Perlin Noise' --size 256 -o " + path("big.png") + " 2>/dev/null";
    const int raw = std::system(cmd.c_str());
    ASSERT_TRUE(WIFSIGNALED(raw)) << raw;
    EXPECT_EQ(WTERMSIG(raw), SIGXFSZ);
    for (const auto& entry : fs::directory_iterator(dir))
        EXPECT_EQ(entry.path().filename().string().find("big.png"), std::string::npos) << entry.path();
}

// A destination that is not a regular file is written in place (renaming over a pipe or a
// device would replace it with a file); through a symbolic link the target is replaced.
TEST_F(Cli, OutputsThroughPipesAndLinksKeepThem) {
    const std::string fifo = path("fifo"), captured = path("captured");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    const std::string cmd = "cat " + fifo + " > " + captured + " & " + std::string(GRAINSMITH_CLI_PATH) +
                            " record Constant -o " + fifo + "; status=$?; wait; exit $status";
    const int raw = std::system(cmd.c_str());
    ASSERT_TRUE(WIFEXITED(raw) && WEXITSTATUS(raw) == 0) << raw;
    EXPECT_TRUE(fs::is_fifo(fifo));
    EXPECT_EQ(slurp(captured).size(), 40u);

    const std::string target = path("target.rec"), link = path("link.rec");
    std::ofstream(target) << "old";
    fs::create_symlink(target, link);
    ASSERT_EQ(run("record Constant -o " + link).status, 0);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(slurp(target).size(), 40u);
}
