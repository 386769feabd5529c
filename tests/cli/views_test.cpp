// The tool's option forms, kind names and views, run as a user runs them.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "grainsmith/version.h"

namespace fs = std::filesystem;

namespace {

struct ToolRun {
    int status;
    std::string err;
};

std::string contents(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// Width, height and colour type from a PNG's header chunk.
struct PngHeader {
    unsigned width, height, colourType;
};
PngHeader header(const std::string& png) {
    const auto be32 = [&](size_t at) {
        return (unsigned(uint8_t(png[at])) << 24) | (unsigned(uint8_t(png[at + 1])) << 16) |
               (unsigned(uint8_t(png[at + 2])) << 8) | unsigned(uint8_t(png[at + 3]));
    };
    return png.size() > 26 ? PngHeader{be32(16), be32(20), unsigned(uint8_t(png[25]))} : PngHeader{0, 0, 99};
}

class Views : public ::testing::Test {
protected:
    void SetUp() override {
        char tmpl[] = "/tmp/grainsmith-views-XXXXXX";
        dir = mkdtemp(tmpl);
    }
    void TearDown() override { fs::remove_all(dir); }
    ToolRun run(const std::string& args) {
        const fs::path out = dir / "out", err = dir / "err";
        const std::string cmd =
            std::string(GRAINSMITH_CLI_PATH) + " " + args + " >" + out.string() + " 2>" + err.string();
        const int raw = std::system(cmd.c_str());
        lastOut = contents(out);
        return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, contents(err)};
    }
    std::string file(const std::string& name) { return (dir / name).string(); }
    fs::path dir;
    std::string lastOut;
};

}  // namespace

TEST_F(Views, OptionsTakeAttachedValuesAndKindNamesIgnoreCase) {
    ASSERT_EQ(run("record Wood --set octaves=3 -o " + file("a.rec")).status, 0);
    ASSERT_EQ(run("record 'simple marble' --set=octaves=3 --output=" + file("b.rec")).status, 0);
    ASSERT_EQ(run("record wood --set=octaves=3 --output=" + file("c.rec")).status, 0);
    EXPECT_EQ(contents(file("a.rec")), contents(file("c.rec")));
    EXPECT_EQ(contents(file("b.rec")).substr(1, 13), std::string("Simple Marble"));

    const ToolRun flagWithValue = run("eval Wood --hex=yes --points /dev/null");
    EXPECT_EQ(flagWithValue.status, 2);
    EXPECT_NE(flagWithValue.err.find("'--hex' takes no value"), std::string::npos) << flagWithValue.err;
}

TEST_F(Views, VersionComesFromTheProject) {
    ASSERT_EQ(run("--version").status, 0);
    EXPECT_EQ(lastOut.substr(0, lastOut.find('\n')), std::string("grainsmith ") + GRAINSMITH_VERSION_STRING);
}

TEST_F(Views, ThreadCountNeverChangesThePicture) {
    for (const char* view : {"slice --plane yz --z 0.3", "sphere", "cube --plane xz"}) {
        const std::string common = std::string("render Wood --size 40x24 --view ") + view + " -o ";
        ASSERT_EQ(run(common + file("one.png") + " --threads 1").status, 0);
        ASSERT_EQ(run(common + file("three.png") + " --threads=3").status, 0);
        const std::string one = contents(file("one.png"));
        EXPECT_EQ(one, contents(file("three.png"))) << view;
        EXPECT_EQ(header(one).width, 40u);
        EXPECT_EQ(header(one).height, 24u);
    }
}

TEST_F(Views, ViewsRampsAndLevelsChangeOnlyThePicture) {
    ASSERT_EQ(run("render Granite --size 32 -o " + file("slice.png")).status, 0);
    ASSERT_EQ(run("render Granite --size 32 --view sphere -o " + file("sphere.png")).status, 0);
    ASSERT_EQ(run("render Granite --size 32 --levels auto -o " + file("auto.png")).status, 0);
    ASSERT_EQ(run("render Granite --size 32 --ramp heat -o " + file("heat.png")).status, 0);
    EXPECT_EQ(header(contents(file("slice.png"))).colourType, 0u);  // grey
    EXPECT_EQ(header(contents(file("heat.png"))).colourType, 2u);   // RGB
    EXPECT_NE(contents(file("slice.png")), contents(file("sphere.png")));
    EXPECT_NE(contents(file("slice.png")), contents(file("auto.png")));

    const ToolRun bad = run("render Granite --view ball -o " + file("x.png"));
    EXPECT_EQ(bad.status, 2);
    EXPECT_NE(bad.err.find("slice, sphere, cube"), std::string::npos) << bad.err;
    EXPECT_FALSE(fs::exists(file("x.png")));
}

TEST_F(Views, GalleryLabelsAreNeverCut) {
    // Tiles far narrower than the longest name: the columns widen to the name instead.
    ASSERT_EQ(run("gallery --size 8 -o " + file("g.png")).status, 0);
    const unsigned longest = 14 * 6 - 1;  // "Speckled Stone": 14 glyphs of 6 pixels, no trailing gap
    EXPECT_GE(header(contents(file("g.png"))).width, 6 * longest);
}
