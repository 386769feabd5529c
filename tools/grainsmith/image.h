// Grey-level images for the command-line tool: a plain pixel buffer, a few drawing helpers,
// a built-in bitmap font for labels, and an all-or-nothing PNG writer.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace grainsmith::cli {

// Row-major, one byte per pixel, 0 = black, 255 = white. pixels.size() == width * height.
struct GreyImage {
    int width = 0;
    int height = 0;
    std::vector<uint8_t> pixels;
};

// An image of the given size filled with one grey. Negative sizes give an empty image.
GreyImage makeImage(int width, int height, uint8_t grey = 0);

// Maps a texture value to a grey: clamped to [0, 1] (NaN counts as 0), then v * 255 rounded
// to the nearest integer, halves away from zero (0.5 gives 128).
uint8_t toGrey(float v);

// Sets every pixel of the rectangle to grey; the parts outside the image are ignored.
void fillRect(GreyImage& image, int x, int y, int width, int height, uint8_t grey);

// Copies src into dst with its top-left corner at (x, y), clipped to dst.
void blit(GreyImage& dst, const GreyImage& src, int x, int y);

// Glyph cell of the built-in font, in pixels at scale 1. Capitals and digits fill the top
// seven rows; the last two rows hold descenders (g, j, p, q, y, comma, underscore).
inline constexpr int kGlyphWidth = 5;
inline constexpr int kGlyphHeight = 9;
inline constexpr int kGlyphAdvance = kGlyphWidth + 1;

// Draws text with its top-left corner at (x, y), each font pixel a scale x scale square
// (scale below 1 counts as 1), clipped to the image. Bytes outside printable ASCII
// (32..126) are drawn as '?'. No line breaks: everything stays on one line.
void drawText(GreyImage& image, int x, int y, std::string_view text, uint8_t grey, int scale = 1);

// Width in pixels that drawText covers: the glyph advances without the trailing gap.
int textWidth(std::string_view text, int scale = 1);

// Height in pixels of a line of text, descenders included.
int textHeight(int scale = 1);

// Writes an 8-bit greyscale PNG. The data goes to a temporary file next to path that is
// renamed over path only once it is complete, so path either keeps its old content or
// receives the whole image. On failure returns false with a message in error, naming the
// path and the cause.
bool writePng(const GreyImage& image, const std::string& path, std::string& error);

// Row-major, three bytes (red, green, blue) per pixel.
struct RgbImage {
    int width = 0;
    int height = 0;
    std::vector<uint8_t> pixels;
};

RgbImage toRgb(const GreyImage& image);

// Copies src into dst with its top-left corner at (x, y), clipped to dst.
void blit(RgbImage& dst, const RgbImage& src, int x, int y);

// As for grey images; an image whose every pixel is grey is written as a grey PNG.
bool writePng(const RgbImage& image, const std::string& path, std::string& error);

}  // namespace grainsmith::cli
