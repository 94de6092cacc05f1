#pragma once

#include "Picture.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace hearthbook::test {

inline constexpr std::uint32_t red = 0xffff0000;
inline constexpr std::uint32_t green = 0xff00ff00;
inline constexpr std::uint32_t blue = 0xff0000ff;
inline constexpr std::uint32_t white = 0xffffffff;

Picture plain(PixelSize size, std::uint32_t pixel);
/// Red top left, green top right, blue bottom left, white bottom right.
Picture corners(PixelSize size);
/// Something like a photograph: soft colours with grain, so that a JPEG of it is large.
Picture grainy(PixelSize size, unsigned seed = 1);

/// The largest difference of one channel between two pixels.
int distance(std::uint32_t a, std::uint32_t b);

std::string jpegOf(const Picture& picture, int factor = 0);
/// A JPEG of exactly so many bytes: behind its end stand zeros, which no reader minds.
std::string jpegOfLength(const Picture& picture, std::size_t bytes);
/// The JPEG with the camera's orientation in it.
std::string withOrientation(std::string_view jpeg, int orientation, bool highFirst = true);
/// The JPEG with a segment of the kind (0xe1 for APP1) behind its first mark.
std::string withSegment(std::string_view jpeg, int kind, std::string_view content);
/// A JPEG in the four inks of the press, as Adobe's programs write it (`adobe`) or plainly.
std::string pressJpegOf(const Picture& picture, bool adobe);
std::string greyJpegOf(const Picture& picture);
/// All of one grey, written line by line, so that it may be far larger than what is decoded.
std::string plainGreyJpeg(PixelSize size, int light);
std::string progressiveJpegOf(const Picture& picture);

/// In the named Qt format ("png", "bmp", "tiff"), with as many bits in each channel.
std::string encodedBy(const char* format, const Picture& picture, int bitsPerChannel = 8);

std::string tgaOf(const Picture& picture);
std::string pcxOf(const Picture& picture);

} // namespace hearthbook::test
