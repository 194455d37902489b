#include "base/RuntimeError.h"
#include "surface/system/ClipboardData_native.h"
#include "surface/system/ClipboardOwner_native.h"
#include "surface/window/Waiting.h"

#include <algorithm>
#include <QGuiApplication>
#include <span>

namespace pintalux {

namespace {

constexpr std::uint64_t kLongestText = std::uint64_t{1} << 24; // bytes

struct TextFormat {
    const char* name;
    bool latin; ///< One byte a character; UTF-8 otherwise.
};

/// Best first.
constexpr TextFormat kTexts[] = {
    {"UTF8_STRING", false}, {"text/plain;charset=utf-8", false}, {"STRING", true}, {"text/plain", false}};

QByteArray BytesOf(File& file) {
    QByteArray bytes(static_cast<qsizetype>(file.Length()), Qt::Uninitialized);
    file.Seek(0);
    const std::span whole(bytes.data(), static_cast<std::size_t>(bytes.size()));
    bytes.resize(static_cast<qsizetype>(file.Read(std::as_writable_bytes(whole))));
    return bytes;
}

QString AskText(ClipboardOwner& owner) {
    const QStringList offered = owner.Formats();
    for (const TextFormat& format : kTexts) {
        if (owner.Silent()) break;
        const auto isIt = [&](const QString& name) {
            return name.compare(QLatin1String(format.name), Qt::CaseInsensitive) == 0;
        };
        const auto place = std::ranges::find_if(offered, isIt);
        if (place == offered.end()) continue;
        if (std::optional<File> file = owner.Bytes(*place, kLongestText))
            return format.latin ? QString::fromLatin1(BytesOf(*file)) : QString::fromUtf8(BytesOf(*file));
    }
    return {};
}

} // namespace

QString TextOfOther(QClipboard::Mode mode) {
    const QClipboard& toolkit = *QGuiApplication::clipboard();
    const bool selected = mode == QClipboard::Selection;
    if (!ClipboardOwner::Reachable() || (selected ? toolkit.ownsSelection() : toolkit.ownsClipboard()))
        return toolkit.text(mode);
    QString text;
    ResumeNext([&] {
        WorkWhileWaiting([&](const std::stop_token& stop) {
            ClipboardOwner owner(stop, selected ? ClipboardOwner::Selection::Marked
                                                : ClipboardOwner::Selection::Copied);
            text = AskText(owner);
        });
    });
    return text;
}

} // namespace pintalux
