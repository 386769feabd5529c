// The tool's option forms, kind names and views, run as a user runs them.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <png.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <vector>

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

// The grey pixels of a PNG, row by row from the top; empty when it cannot be read.
std::vector<uint8_t> greyPixels(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str())) return {};
    image.format = PNG_FORMAT_GRAY;
    std::vector<uint8_t> pixels(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr)) return {};
    return pixels;
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
    ASSERT_EQ(run("docs --help").status, 0);
    EXPECT_NE(lastOut.find("usage: grainsmith docs -o DIR"), std::string::npos);
    ASSERT_EQ(run("--version").status, 0);
    EXPECT_EQ(lastOut.substr(0, lastOut.find('\n')), std::string("grainsmith ") + GRAINSMITH_VERSION_STRING);
    EXPECT_NE(lastOut.find("\nbatch evaluation SIMD level: "), std::string::npos) << lastOut;
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

TEST_F(Views, SlicePixelsShowTheirPlanesPoints) {
    // 2 x 2 pixels over [0, 1]: centres at 0.25 and 0.75, the second image axis upwards, the
    // offset on the third axis. Each pixel must be the value eval gives at that point.
    const std::string points = file("points");
    std::ofstream(points) << "0.25 0.75 0.4\n0.75 0.25 0.4\n"   // xy: top-left, bottom-right
                          << "0.25 0.4 0.75\n0.75 0.4 0.25\n"   // xz
                          << "0.4 0.25 0.75\n0.4 0.75 0.25\n";  // yz
    ASSERT_EQ(run("eval Wood --points " + points).status, 0);
    std::vector<int> expected;
    std::istringstream values(lastOut);
    for (float v; values >> v;) expected.push_back(static_cast<int>(std::lround(std::clamp(v, 0.0f, 1.0f) * 255.0f)));
    ASSERT_EQ(expected.size(), 6u);
    int n = 0;
    for (const char* plane : {"xy", "xz", "yz"}) {
        ASSERT_EQ(run(std::string("render Wood --size 2 --extent 1 --offset 0.4 --plane ") + plane + " -o " +
                      file("p.png")).status, 0);
        const std::vector<uint8_t> px = greyPixels(file("p.png"));
        ASSERT_EQ(px.size(), 4u);
        EXPECT_EQ(px[0], expected[n++]) << plane << " top-left";
        EXPECT_EQ(px[3], expected[n++]) << plane << " bottom-right";
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
