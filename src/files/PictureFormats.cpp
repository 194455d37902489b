#include "files/PictureFormats.h"

#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "surface/system/App.h"
#include "surface/system/BmpWriter.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"
#include "surface/system/TempNames.h"

#include <optional>
#include <unistd.h>

namespace pintalux {

namespace {

void WriteNewBmp(const Picture& picture, const std::string& path) {
    // Only a process that ended in the middle left one of this name: no other has our number.
    if (FileLength(path)) DeleteFile(path);
    File file = File::CreateNew(path);
    WriteBmp(picture, file);
    file.Close();
}

/// The image as a BMP beside the program, or where temporary files go if there is no room for it; it goes
/// with the object.
class TempBmp {
  public:
    explicit TempBmp(const Picture& picture) {
        if (!Try(picture, [] { return App.Path() + "/"; }) &&
            !TryTempFolders([&](const std::string& folder) { return Try(picture, [&] { return folder; }); }))
            throw *failure_;
    }
    ~TempBmp() {
        ResumeNext([this] { DeleteFile(path_); });
    }
    TempBmp(const TempBmp&) = delete;
    TempBmp& operator=(const TempBmp&) = delete;
    const std::string& Path() const { return path_; }

  private:
    template <class Folder>
    bool Try(const Picture& picture, Folder folder) {
        try {
            path_ = folder() + "klTmpJpg" + std::to_string(::getpid()) + ".bmp";
            WriteNewBmp(picture, path_);
            return true;
        } catch (const RuntimeError& error) {
            if (!failure_) failure_ = error;
            ResumeNext([this] { DeleteFile(path_); });
            return false;
        }
    }
    std::string path_;
    std::optional<RuntimeError> failure_; // the first one: that of the folder that counts
};

void SaveBmp(const Picture& picture, const std::string& path, int) {
    SavePictureAside(picture, path);
}

void SaveJpeg(const Picture& picture, const std::string& path, int quality) {
    const TempBmp bmp(picture);
    BmpToJpeg(bmp.Path(), path, quality);
}

constexpr PictureFormat kFormats[] = {{"bmp", "Bitmap", SaveBmp},
                                      {"jpg", "Jpeg", SaveJpeg},
                                      {"gif", nullptr, nullptr},
                                      {"bif", nullptr, nullptr}};

std::string PatternOf(const PictureFormat& format) {
    return std::string("*.") + format.extension;
}

std::string Entry(const std::string& name, const std::string& patterns) {
    return name + " (" + patterns + ")|" + patterns;
}

} // namespace

std::string OpenFilter() {
    std::string patterns;
    for (const PictureFormat& format : kFormats)
        patterns += (patterns.empty() ? "" : ";") + PatternOf(format);
    return Entry("Picture files", patterns);
}

std::string SaveFilter() {
    std::string filter;
    for (const PictureFormat& format : kFormats)
        if (format.name != nullptr)
            filter += (filter.empty() ? "" : "|") + Entry(format.name, PatternOf(format));
    return filter;
}

const PictureFormat& FormatOfFilter(int filterIndex) {
    for (const PictureFormat& format : kFormats)
        if (format.name != nullptr && --filterIndex == 0) return format;
    return kFormats[0];
}

const PictureFormat* WritableFormat(const std::string& extension) {
    for (const PictureFormat& format : kFormats)
        if (format.write != nullptr && LowerCase(extension) == format.extension) return &format;
    return nullptr;
}

} // namespace pintalux
