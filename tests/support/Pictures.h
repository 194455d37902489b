// Small pictures in tests: written as text, compared to the pixel, kept for looking at when they differ.
#pragma once

#include "support/Folders.h"
#include "surface/raster/Bitmap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <ios>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace pintalux {

/// The pixel that a letter stands for: . white, # black, r red, g green, b blue, y yellow, k 0x8894A0.
inline Pixel NamedPixel(char name) {
    switch (name) {
    case '#':
        return 0x000000;
    case 'r':
        return 0x0000FF;
    case 'g':
        return 0x00FF00;
    case 'b':
        return 0xFF0000;
    case 'y':
        return 0x00FFFF;
    case 'k':
        return 0x8894A0;
    default:
        return 0xFFFFFF;
    }
}

/// The picture of rows such as "..#"; short rows are white at their end.
inline Bitmap PictureOf(const std::vector<std::string_view>& rows) {
    std::size_t width = 0;
    for (const std::string_view row : rows)
        width = std::max(width, row.size());
    Bitmap picture(static_cast<int>(width), static_cast<int>(rows.size()), 0xFFFFFF);
    for (std::size_t y = 0; y < rows.size(); ++y) {
        for (std::size_t x = 0; x < rows[y].size(); ++x) {
            picture.Set(static_cast<int>(x), static_cast<int>(y), NamedPixel(rows[y][x]));
        }
    }
    return picture;
}

/// A picture in which each pixel differs by place and seed.
inline Bitmap RandomPicture(int width, int height, unsigned seed, Pixel mask = 0xFFFFFF) {
    std::mt19937 random(seed);
    Bitmap picture(width, height, 0);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            picture.Set(x, y, static_cast<Pixel>(random()) & mask);
    }
    return picture;
}

inline std::string Hexadecimal(Pixel pixel) {
    std::ostringstream text;
    text << std::hex << std::uppercase << std::setw(6) << std::setfill('0') << pixel;
    return text.str();
}

/// Keeps a picture as <build>/failed/<test>-<role>.ppm and gives the file's name.
inline std::string KeepPicture(const Bitmap& picture, const std::string& role) {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = test ? std::string(test->test_suite_name()) + "." + test->name() : "test";
    std::replace(name.begin(), name.end(), '/', '_');
    std::filesystem::create_directories(FailedPictures());
    const std::string path = FailedPictures() + "/" + name + "-" + role + ".ppm";
    std::ofstream file(path, std::ios::binary);
    file << "P6\n" << picture.Width() << ' ' << picture.Height() << "\n255\n";
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            const Pixel pixel = picture.At(x, y);
            for (int shift = 0; shift < 24; shift += 8)
                file.put(static_cast<char>(pixel >> shift & 0xFF));
        }
    }
    return path;
}

/// Expects equal sizes and pixels. A failure tells the first pixel that differs, both values and how many do,
/// and keeps both pictures. Gives true if they are equal.
inline bool ExpectSamePixels(const Bitmap& actual, const Bitmap& expected) {
    if (actual.Width() != expected.Width() || actual.Height() != expected.Height()) {
        ADD_FAILURE() << "size " << actual.Width() << " x " << actual.Height() << ", expected "
                      << expected.Width() << " x " << expected.Height();
        return false;
    }
    std::int64_t count = 0;
    std::string first;
    for (int y = 0; y < actual.Height(); ++y) {
        for (int x = 0; x < actual.Width(); ++x) {
            if (actual.At(x, y) == expected.At(x, y)) continue;
            if (count++ > 0) continue;
            first = "x " + std::to_string(x) + ", y " + std::to_string(y) + ": " +
                    Hexadecimal(actual.At(x, y)) + ", expected " + Hexadecimal(expected.At(x, y));
        }
    }
    if (count == 0) return true;
    ADD_FAILURE() << count << " pixels differ, first at " << first << "\n"
                  << KeepPicture(actual, "actual") << "\n"
                  << KeepPicture(expected, "expected");
    return false;
}

} // namespace pintalux
