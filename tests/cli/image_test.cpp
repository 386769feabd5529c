#include <gtest/gtest.h>

#include <sys/stat.h>

#include <climits>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <set>
#include <string>
#include <vector>

#include <png.h>

#include "image.h"

namespace {

using grainsmith::cli::GreyImage;
namespace fs = std::filesystem;

uint8_t pixel(const GreyImage& image, int x, int y) {
    return image.pixels[static_cast<size_t>(y) * image.width + x];
}

int litCount(const GreyImage& image) {
    int count = 0;
    for (uint8_t p : image.pixels) count += p != 0;
    return count;
}

GreyImage rendered(std::string_view text, int width, int height, int x = 0, int y = 0, int scale = 1) {
    GreyImage image = grainsmith::cli::makeImage(width, height);
    grainsmith::cli::drawText(image, x, y, text, 200, scale);
    return image;
}

TEST(GreyImage, ToGreyClampsAndRoundsToNearest) {
    using grainsmith::cli::toGrey;
    EXPECT_EQ(toGrey(std::numeric_limits<float>::quiet_NaN()), 0);
    EXPECT_EQ(toGrey(-1.0f), 0);
    EXPECT_EQ(toGrey(2.0f), 255);
    EXPECT_EQ(toGrey(0.5f), 128);   // 127.5: a half rounds up
    EXPECT_EQ(toGrey(0.75f), 191);  // 191.25
}

TEST(GreyImageText, GlyphsDrawInTheirCellAndSpaceDrawsNothing) {
    // 'A' is .###. / #...# / #...# / ##### / #...# / #...# / #...#: 18 pixels.
    GreyImage a = rendered("A", 12, 14, 1, 2);
    EXPECT_EQ(litCount(a), 18);
    EXPECT_EQ(pixel(a, 2, 2), 200);
    EXPECT_EQ(pixel(a, 1, 2), 0);
    EXPECT_EQ(litCount(rendered("A", 24, 28, 1, 2, 2)), 4 * 18);
    EXPECT_EQ(litCount(rendered(" ", 12, 14)), 0);

}

TEST(GreyImageText, EveryPrintableGlyphIsDrawnAndDistinct) {
    std::set<std::vector<uint8_t>> seen;
    for (int c = 33; c <= 126; ++c) {
        const std::string text(1, static_cast<char>(c));
        GreyImage image = rendered(text, grainsmith::cli::kGlyphWidth, grainsmith::cli::kGlyphHeight);
        EXPECT_GT(litCount(image), 0) << text;
        EXPECT_TRUE(seen.insert(image.pixels).second) << "'" << text << "' looks like another glyph";
    }
    // Bytes outside printable ASCII fall back to '?'.
    EXPECT_EQ(rendered("\x80", 5, 9).pixels, rendered("?", 5, 9).pixels);
    EXPECT_EQ(rendered("\n", 5, 9).pixels, rendered("?", 5, 9).pixels);
}

TEST(GreyImageText, WidthAndClipping) {
    EXPECT_EQ(grainsmith::cli::textWidth("ab", 3), 33);  // two 6-pixel advances less the trailing gap
    // 'L' one pixel left of the image: only the four pixels of its bar remain.
    EXPECT_EQ(litCount(rendered("L", 10, 10, -1, 0)), 4);
    EXPECT_EQ(litCount(rendered("text", 4, 4, INT_MAX - 1, INT_MAX - 1, INT_MAX)), 0);  // no overflow
}

class PngWriteTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = ::testing::TempDir() + "grainsmith_image_XXXXXX";
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        dir_ = pattern;
    }
    void TearDown() override { fs::remove_all(dir_); }

    std::vector<std::string> entries() const {
        std::vector<std::string> names;
        for (const auto& e : fs::directory_iterator(dir_)) names.push_back(e.path().filename().string());
        return names;
    }

    fs::path dir_;
};

GreyImage pattern(int width, int height, int salt) {
    GreyImage image = grainsmith::cli::makeImage(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) image.pixels[y * width + x] = static_cast<uint8_t>(x * 7 + y * 13 + salt);
    }
    return image;
}

// Decodes with libpng; format 0 is 8-bit grey without alpha.
bool readPng(const std::string& path, GreyImage& out, png_uint_32& format) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str())) return false;
    format = image.format;
    image.format = PNG_FORMAT_GRAY;
    out = grainsmith::cli::makeImage(static_cast<int>(image.width), static_cast<int>(image.height));
    return png_image_finish_read(&image, nullptr, out.pixels.data(), 0, nullptr) != 0;
}

TEST_F(PngWriteTest, WritesAGreyPngThatDecodesToTheSamePixels) {
    const std::string path = (dir_ / "out.png").string();
    std::string error;
    for (int salt : {0, 100}) {  // the second write replaces the first
        const GreyImage image = pattern(37, 11, salt);
        ASSERT_TRUE(grainsmith::cli::writePng(image, path, error)) << error;

        GreyImage decoded;
        png_uint_32 format = 99;
        ASSERT_TRUE(readPng(path, decoded, format));
        EXPECT_EQ(format, 0u);
        EXPECT_EQ(decoded.width, 37);
        EXPECT_EQ(decoded.height, 11);
        EXPECT_EQ(decoded.pixels, image.pixels);
        EXPECT_EQ(entries(), std::vector<std::string>{"out.png"});  // no temporary left behind
    }
    // Created like any new file: 0666 less the umask, not the 0600 of a temporary.
    const mode_t mask = umask(0);
    umask(mask);
    struct stat info {};
    ASSERT_EQ(stat(path.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0666 & ~mask);
}

TEST_F(PngWriteTest, FailuresReportTheCauseAndLeaveNoFile) {
    const GreyImage image = pattern(4, 3, 0);
    std::string error;

    const std::string missing = (dir_ / "missing" / "x.png").string();
    EXPECT_FALSE(grainsmith::cli::writePng(image, missing, error));
    EXPECT_EQ(error, "cannot write '" + missing + "': No such file or directory");
    EXPECT_TRUE(entries().empty());

    // The destination is a directory: the encoding succeeds, the rename fails, and the
    // temporary beside it must be gone.
    fs::create_directory(dir_ / "taken.png");
    error.clear();
    EXPECT_FALSE(grainsmith::cli::writePng(image, (dir_ / "taken.png").string(), error));
    EXPECT_NE(error.find("cannot write '" + (dir_ / "taken.png").string() + "': "), std::string::npos) << error;
    EXPECT_EQ(entries(), std::vector<std::string>{"taken.png"});

    EXPECT_EQ(entries(), std::vector<std::string>{"taken.png"});
}

}  // namespace
