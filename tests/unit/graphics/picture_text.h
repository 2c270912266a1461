// Images as text, one character a pixel, so that a test tells what it expects as a picture.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>
#include <utility>

#include "data/pixmap.h"

namespace velm {

using PixelSigns = std::initializer_list<std::pair<std::uint32_t, char>>;

// The upper left part of an image; a pixel without a sign is "?".
inline std::string PictureText(const Pixmap& image, std::int32_t width, std::int32_t height,
                               PixelSigns signs) {
    std::string text;
    for (std::int32_t y = 0; y < height; ++y) {
        for (std::int32_t x = 0; x < width; ++x) {
            char found = '?';
            for (const auto& [pixel, sign] : signs) {
                if (image.At(x, y) == pixel) found = sign;
            }
            text += found;
        }
        text += '\n';
    }
    return text;
}

// An approved picture of tests/data/pictures.
inline std::string ApprovedPicture(const std::string& name) {
    const auto folder = std::filesystem::path(__FILE__).parent_path() / "../../data/pictures";
    std::ifstream in(folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace velm
