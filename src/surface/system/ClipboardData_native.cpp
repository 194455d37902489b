#include "surface/system/ClipboardData_native.h"

#include "base/RuntimeError.h"
#include "surface/system/ClipboardOwner_native.h"
#include "surface/system/ClipboardPieces_native.h"
#include "surface/system/FreeMemory.h"
#include "surface/system/Pictures.h"
#include "surface/system/Stopping.h"

#include <algorithm>
#include <QElapsedTimer>
#include <span>

namespace pintalux {

namespace {

/// The bitmap formats we read, best first: PNG alone keeps what is transparent.
constexpr const char* kReadable[] = {kPng, kBmp, "image/x-bmp", "image/x-MS-bmp", "image/jpeg", "image/gif"};

/// By our own writers: the toolkit's refuse the largest pictures.
QByteArray BytesOf(const Pieces& pieces) {
    QByteArray bytes;
    for (std::string piece = pieces(); !piece.empty(); piece = pieces())
        bytes.append(piece.data(), static_cast<qsizetype>(piece.size()));
    return bytes;
}

} // namespace

QStringList PictureData::formats() const {
    return {kBmp, kPng};
}

QVariant PictureData::retrieveData(const QString& format, QMetaType) const {
    // The toolkit calls this from the middle of its own work: what fails offers nothing.
    try {
        if (format == kBmp) return BytesOf(BmpPieces(picture));
        if (format == kPng) return BytesOf(PngPieces(picture));
    } catch (const RuntimeError&) {
    } catch (const std::bad_alloc&) {
    }
    return {};
}

QStringList ReadableFormats(const QStringList& offered) {
    QStringList readable;
    for (const char* format : kReadable)
        for (const QString& name : offered)
            if (name.compare(QLatin1String(format), Qt::CaseInsensitive) == 0) readable += name;
    return readable;
}

FetchedBitmap DecodeBitmap(File& bytes, std::uint64_t limit, const std::stop_token& stop) {
    try {
        const std::optional<PictureSize> size = AnnouncedSize(bytes);
        if (!size) return {};
        if (PictureBytes(size->width, size->height) > limit) return {Fetch::TooLarge};
        return {Fetch::Taken, ReadPicture(bytes, stop)};
    } catch (const RuntimeError& error) {
        if (error.Number() == kInterrupted) throw;
        return {};
    }
}

FetchedBitmap FetchBitmap(const QStringList& formats, std::uint64_t limit, const std::stop_token& stop) {
    ClipboardOwner owner(stop);
    const std::uint64_t mostBytes = std::min(limit, FreeMemory() / 2);
    for (const QString& format : formats) {
        std::optional<File> bytes = owner.Bytes(format, mostBytes);
        RaiseIfStopped(stop);
        // An owner that says nothing to one question would hold us up as long for each of the others.
        if (owner.Silent()) return {Fetch::Silent};
        if (owner.TooLarge()) return {limit == kAnySize ? Fetch::Unreadable : Fetch::TooLarge};
        if (!bytes) continue;
        FetchedBitmap found = DecodeBitmap(*bytes, limit, stop);
        if (found.outcome != Fetch::Unreadable) return found;
    }
    return {};
}

std::optional<File> AskToolkit(const QMimeData& data, const QString& format, bool& silent) {
    constexpr qint64 kSilence = 2000; // milliseconds
    QElapsedTimer waiting;
    waiting.start();
    const QByteArray bytes = data.data(format);
    silent = bytes.isEmpty() && waiting.hasExpired(kSilence);
    if (bytes.isEmpty()) return std::nullopt;
    File file = File::InMemory("");
    file.Write(std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
    return file;
}

} // namespace pintalux
