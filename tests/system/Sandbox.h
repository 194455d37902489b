// What the tests of files share: a folder of their own, plain reading and writing, foreign rights, small
// pictures.
#pragma once

#include "support/Errors.h"
#include "support/OrdinaryUser.h"
#include "surface/raster/Bitmap.h"
#include "surface/system/FileLayer.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace pintalux {

/// A folder that goes with the object, whatever lies in it.
class Sandbox {
  public:
    Sandbox() {
        std::string pattern = (std::filesystem::temp_directory_path() / "pintalux-test-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
    }
    ~Sandbox() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Sandbox(const Sandbox&) = delete;
    Sandbox& operator=(const Sandbox&) = delete;

    const std::string& Folder() const { return folder_; }
    std::string operator/(const std::string& name) const { return folder_ + "/" + name; }
    /// Names of everything in the folder, hidden files too.
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_))
            names.push_back(entry.path().filename().string());
        return names;
    }

  private:
    std::string folder_;
};

inline std::string BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void PutBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

inline unsigned ModeOf(const std::string& path) {
    struct stat info = {};
    return ::stat(path.c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
}

/// Sets an environment variable for the object's life.
class Variable {
  public:
    Variable(const char* name, const std::string& value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        ::setenv(name, value.c_str(), 1);
    }
    ~Variable() { old_.empty() ? ::unsetenv(name_) : ::setenv(name_, old_.c_str(), 1); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    const char* name_;
    std::string old_;
};

/// Every pixel another colour, all three channels in use.
inline Picture Pattern(int width, int height, unsigned seed = 1) {
    Picture picture(width, height, kWhite);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.Set(x, y,
                        (static_cast<Pixel>(x) * 2654435761U + static_cast<Pixel>(y) * 40503U * seed + seed) &
                            0xFFFFFF);
    return picture;
}

/// `value` as `bytes` bytes, the lowest first.
inline std::string LittleEndian(std::int64_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(i < 8 ? value >> (8 * i) & 0xFF : 0);
    return text;
}

/// The operation of `WriteFileAside` over an old file whose refusal is no failure: after looking at the old
/// file and making the new one, its mode.
inline constexpr int kModeOperation = 3;

/// Fails the n-th operation of `step` for every n that there is and asks `check` each time; the number of
/// operations.
template <class Step, class Check>
int FailEachOperation(int errnoValue, Step step, Check check) {
    FailFileOperation(0, 0);
    step();
    const int count = FileOperationCount();
    for (int n = 1; n <= count; ++n) {
        FailFileOperation(n, errnoValue);
        const int error = ErrorOf(step);
        FailFileOperation(0, 0);
        check(n, error);
    }
    return count;
}

} // namespace pintalux
