// Pictures in and out of files.
#pragma once

#include "surface/raster/Bitmap.h"

#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>

namespace pintalux {

class File;

/// Largest legal width and height of a picture.
inline constexpr int kMaxPictureSide = 32000;

/// Width and height in pixels.
struct PictureSize {
    int width = 0;
    int height = 0;

    bool Legal() const {
        return width >= 1 && height >= 1 && width <= kMaxPictureSide && height <= kMaxPictureSide;
    }
};

/// The legal size that the header of a picture's file announces, and `ReadPicture` makes room for. Nothing
/// for any other file, or for an icon, which announces none. Error 481 if the header is broken.
std::optional<PictureSize> AnnouncedSize(File& file);

/// `LoadPicture` from an open file.
Picture ReadPicture(File& file, const std::stop_token& stop);

/// A picture from a BMP, JPEG, GIF (first frame), PNG, WebP, TIFF (first picture) or icon file; the first
/// bytes decide, not the name. An empty path gives the empty picture. Error 53 if there is no such file, 481
/// if it is no picture, broken or above the legal sizes (found from the header, before anything is decoded),
/// 7 if memory runs out or the picture would take more than half of what is free, 18 soon after `stop` is
/// asked for. Transparent pixels show white. A truncated JPEG or GIF shows what is there. Any thread may call
/// it.
Picture LoadPicture(const std::string& path, const std::stop_token& stop = {});
inline Picture LoadPicture() {
    return {};
}

/// The same for a file that a user opens: the interface stays alive meanwhile, and Escape is error 18 (see
/// `WorkWhileWaiting`).
Picture LoadPictureWaiting(const std::string& path);

/// Begins to read the file beside whatever else is to be done before `LoadPictureWaiting` asks for it; that
/// takes the result, unless the file is another one by then. Nothing is said of a failure until it is asked
/// for. Begun before there is an `Application`, it leaves what the toolkit decodes to a second call; one for
/// the file that is being read goes on with it. For the interface's thread.
void LoadPictureAhead(const std::string& path);

/// Writes an uncompressed 24-bit BMP to `path`, in place. Every write and the close are checked; errors as
/// the file layer gives them. Error 481 for the empty picture.
void SavePicture(const Picture& picture, const std::string& path);

/// The same, written aside and renamed: a failure leaves the old file as it was.
void SavePictureAside(const Picture& picture, const std::string& path);

/// Length in bytes of the BMP file that `SavePicture` writes.
std::uint64_t BmpFileLength(int width, int height);

/// Writes `jpegPath` from the BMP file `bmpPath` at `quality` (1 to 100), aside and renamed. On any failure
/// the old file stays as it was and the error passes up: the file layer's, 481 for a source that is no
/// uncompressed 24-bit file, such as `SavePicture` writes, 7 if memory runs out. A quality out of range
/// counts as its nearest end; below 90 colours are coded at half the resolution.
void BmpToJpeg(const std::string& bmpPath, const std::string& jpegPath, int quality);

} // namespace pintalux
