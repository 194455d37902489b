#include "surface/system/JpegReader.h"

#include "base/RuntimeError.h"
#include "surface/raster/TilesAhead.h"
#include "surface/system/FreeMemory.h"
#include "surface/system/Stopping.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio> // The library's header needs it before itself.
#include <exception>
#include <jerror.h>
#include <jpeglib.h>
#include <memory>
#include <vector>

namespace pintalux {

namespace {

/// Writers of progressive files make about ten. Each goes over the whole picture, however little it holds.
constexpr int kMostScans = 100;

/// The library at work on one file. It knows no exceptions: an error jumps out of it, and is raised outside.
class Decoder {
  public:
    Decoder(File& file, const std::stop_token& stop) : file_(file), stop_(stop) {
        info.err = jpeg_std_error(&errors_);
        errors_.error_exit = LeaveLibrary;
        errors_.output_message = [](j_common_ptr) {};
        errors_.emit_message = [](j_common_ptr common, int level) {
            if (level < 0) ++common->err->num_warnings;
        };
        info.client_data = this;
        Run([this] { jpeg_CreateDecompress(&info, JPEG_LIB_VERSION, sizeof info); });
        source_.init_source = [](j_decompress_ptr) {};
        source_.term_source = [](j_decompress_ptr) {};
        source_.fill_input_buffer = Fill;
        source_.skip_input_data = Skip;
        source_.resync_to_restart = jpeg_resync_to_restart;
        info.src = &source_;
        progress_.progress_monitor = LookUp;
        info.progress = &progress_;
    }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    ~Decoder() { jpeg_destroy_decompress(&info); }

    /// Makes calls of the library. What is skipped by its jump must need no destructor.
    template <class Calls>
    void Run(Calls calls) {
        if (setjmp(outside_) == 0) {
            calls();
            return;
        }
        if (failure_) std::rethrow_exception(failure_);
        throw RuntimeError(errors_.msg_code == JERR_OUT_OF_MEMORY ? kOutOfMemory : kInvalidPicture,
                           file_.Path());
    }

    [[noreturn]] void Refuse() const { throw RuntimeError(kInvalidPicture, file_.Path()); }

    jpeg_decompress_struct info = {};

  private:
    template <class Info>
    static Decoder& Of(Info* any) {
        return *static_cast<Decoder*>(any->client_data);
    }

    [[noreturn]] static void LeaveLibrary(j_common_ptr common) { std::longjmp(Of(common).outside_, 1); }

    /// What the step raises is kept, until the library has been left.
    template <class Step>
    void Keep(Step step) noexcept {
        try {
            step();
        } catch (...) {
            failure_ = std::current_exception();
        }
    }

    static boolean Fill(j_decompress_ptr info) {
        Decoder& decoder = Of(info);
        std::size_t got = 0;
        decoder.Keep([&] {
            RaiseIfStopped(decoder.stop_);
            got = decoder.file_.Read(std::as_writable_bytes(std::span(decoder.buffer_)));
        });
        if (decoder.failure_) LeaveLibrary(reinterpret_cast<j_common_ptr>(info));
        if (got == 0) {
            // A file that ends early ends here: the library shows what it has.
            decoder.buffer_[0] = 0xFF;
            decoder.buffer_[1] = JPEG_EOI;
            got = 2;
        }
        decoder.source_.next_input_byte = decoder.buffer_.data();
        decoder.source_.bytes_in_buffer = got;
        return TRUE;
    }

    static void Skip(j_decompress_ptr info, long count) {
        jpeg_source_mgr& source = *info->src;
        while (count > static_cast<long>(source.bytes_in_buffer)) {
            count -= static_cast<long>(source.bytes_in_buffer);
            Fill(info);
        }
        if (count <= 0) return;
        source.next_input_byte += count;
        source.bytes_in_buffer -= static_cast<std::size_t>(count);
    }

    /// The library calls it at every step through the picture.
    static void LookUp(j_common_ptr common) {
        Decoder& decoder = Of(common);
        decoder.Keep([&] {
            RaiseIfStopped(decoder.stop_);
            if (decoder.info.input_scan_number > kMostScans) decoder.Refuse();
        });
        if (decoder.failure_) LeaveLibrary(common);
    }

    File& file_;
    const std::stop_token& stop_;
    jpeg_error_mgr errors_ = {};
    jpeg_source_mgr source_ = {};
    jpeg_progress_mgr progress_ = {};
    std::jmp_buf outside_ = {};
    std::exception_ptr failure_;
    std::array<JOCTET, std::size_t{64} << 10> buffer_ = {};
};

/// Pieces of 8 by 8 pixels that a file in several scans is collected in, before its first row can be shown.
std::uint64_t CollectedBlocks(jpeg_decompress_struct& info) {
    if (!jpeg_has_multiple_scans(&info)) return 0;
    std::uint64_t blocks = 0;
    for (const jpeg_component_info& part :
         std::span(info.comp_info, static_cast<std::size_t>(info.num_components)))
        blocks += std::uint64_t{part.width_in_blocks} * part.height_in_blocks;
    return blocks;
}

/// Refuses what can't be shown before room for it is taken.
void CheckAnnounced(Decoder& decoder, std::uint64_t fileLength) {
    jpeg_decompress_struct& info = decoder.info;
    if (info.image_width > kMaxPictureSide || info.image_height > kMaxPictureSide) decoder.Refuse();
    if (info.out_color_space == JCS_UNKNOWN) decoder.Refuse();
    const std::uint64_t blocks = CollectedBlocks(info);
    const std::uint64_t blockBytes = DCTSIZE2 * sizeof(JCOEF) * blocks;
    // Each block takes a bit or more. Of a photograph that was cut off a hundredth is there; what has less
    // only pretends to be large.
    constexpr std::uint64_t kAlwaysTried = std::uint64_t{64} << 20;
    if (blockBytes > kAlwaysTried && fileLength * 8 * 100 < blocks) decoder.Refuse();
    DemandMemory(PictureBytes(static_cast<int>(info.image_width), static_cast<int>(info.image_height)) +
                 blockBytes);
}

/// Notices that the file's data are over and nothing but one grey follows, to the last row: a few bytes can
/// announce a thousand million pixels.
class GreyRest {
  public:
    /// To be told of each row. True once every later row looks like this one.
    bool Begins(jpeg_decompress_struct& info, std::span<const Pixel> row) {
        // Up to 64 bits were read ahead, and each may be a piece of the picture; the rows beside a piece show
        // something of it.
        constexpr unsigned kBitsAhead = 64;
        constexpr unsigned kNeighbours = 4;
        if (info.unread_marker != JPEG_EOI || info.arith_code || jpeg_has_multiple_scans(&info)) return false;
        const bool same = std::ranges::all_of(row, [&](Pixel pixel) { return pixel == grey_; });
        quietRows_ = same ? quietRows_ + 1 : 0;
        grey_ = row[0];
        const unsigned rowsOfPieces = kBitsAhead / info.MCUs_per_row + 1 + kNeighbours;
        return quietRows_ > rowsOfPieces * static_cast<unsigned>(info.max_v_samp_factor) * DCTSIZE;
    }

  private:
    Pixel grey_ = 0;
    unsigned quietRows_ = 0;
};

/// A row of inks on white paper, which the file holds inverted.
void InksToPixels(std::span<const JSAMPLE> inks, std::span<Pixel> row) {
    for (std::size_t x = 0; x < row.size(); ++x) {
        const JSAMPLE* ink = &inks[x * 4];
        const unsigned black = ink[3];
        row[x] = black * ink[2] / 255 << 16 | black * ink[1] / 255 << 8 | black * ink[0] / 255;
    }
}

class Rows {
  public:
    explicit Rows(Decoder& decoder)
        : decoder_(decoder), inks_(decoder.info.out_color_space == JCS_CMYK),
          pixels_(decoder.info.image_width), samples_(std::size_t{4} * decoder.info.image_width) {
        // Red, green, blue and a byte more: what a pixel is in memory.
        if (!inks_) decoder.info.out_color_space = JCS_EXT_RGBX;
    }

    /// The next row.
    std::span<const Pixel> Next() {
        JSAMPROW row = inks_ ? samples_.data() : reinterpret_cast<JSAMPROW>(pixels_.data());
        decoder_.Run([&] { jpeg_read_scanlines(&decoder_.info, &row, 1); });
        if (inks_) {
            InksToPixels(samples_, pixels_);
        } else {
            for (Pixel& pixel : pixels_)
                pixel &= 0xFFFFFF;
        }
        return pixels_;
    }

  private:
    Decoder& decoder_;
    bool inks_;
    std::vector<Pixel> pixels_;
    std::vector<JSAMPLE> samples_;
};

/// The tile memory that a picture will take, as far as the file has data for it: a pixel of a photograph
/// takes a byte or less, one of an even sky a hundredth.
std::uint64_t ExpectedRoom(const Picture& picture, std::uint64_t fileLength) {
    constexpr std::uint64_t kMostPixelsOfAByte = 64;
    return std::min(PictureBytes(picture.Width(), picture.Height()), fileLength * kMostPixelsOfAByte * 4);
}

Picture ReadRows(Decoder& decoder, std::uint64_t fileLength) {
    jpeg_decompress_struct& info = decoder.info;
    Rows rows(decoder);
    decoder.Run([&] { jpeg_start_decompress(&info); });
    Picture picture(static_cast<int>(info.output_width), static_cast<int>(info.output_height), kWhite);
    const TilesAhead tiles(ExpectedRoom(picture, fileLength));
    GreyRest rest;
    for (int y = 0; y < picture.Height(); ++y) {
        const std::span<const Pixel> row = rows.Next();
        picture.WriteRow(0, y, row);
        if (!rest.Begins(info, row)) continue;
        picture.Fill({0, y + 1, picture.Width(), picture.Height()}, row[0]);
        return picture;
    }
    decoder.Run([&] { jpeg_finish_decompress(&info); });
    return picture;
}

std::unique_ptr<Decoder> HeaderRead(File& file, const std::stop_token& stop) {
    file.Seek(0);
    auto decoder = std::make_unique<Decoder>(file, stop);
    decoder->Run([&] { jpeg_read_header(&decoder->info, TRUE); });
    return decoder;
}

} // namespace

Picture ReadJpeg(File& file, const std::stop_token& stop) {
    const auto decoder = HeaderRead(file, stop);
    CheckAnnounced(*decoder, file.Length());
    return ReadRows(*decoder, file.Length());
}

PictureSize ReadJpegSize(File& file) {
    const std::stop_token never;
    const auto decoder = HeaderRead(file, never);
    return {static_cast<int>(decoder->info.image_width), static_cast<int>(decoder->info.image_height)};
}

} // namespace pintalux
