#include "surface/system/Printer.h"

#include "base/RuntimeError.h"
#include "surface/system/FileLayer.h"
#include "surface/system/TempNames.h"
#include "surface/system/ToolkitImages_native.h"
#include "surface/window/Control.h"
#include "surface/window/DialogOwner_native.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <span>
#include <vector>

namespace pintalux {

namespace {

constexpr double kTwipsPerInch = 1440;
constexpr std::size_t kLongestPage = std::size_t{1} << 30; // bytes

/// The upper left part of a picture.
Picture Part(const Picture& picture, int columns, int rows) {
    if (columns == picture.Width() && rows == picture.Height()) return picture;
    Picture part(columns, rows, 0);
    std::vector<Pixel> row(static_cast<std::size_t>(columns));
    for (int y = 0; y < rows; ++y) {
        picture.ReadRow(0, y, row);
        part.WriteRow(0, y, row);
    }
    return part;
}

} // namespace

/// The toolkit's printer is made at its first use, and ends with the toolkit.
struct PrinterObject::Native {
    std::unique_ptr<QPrinter> printer;
    QPainter painter;
    std::string fileForTests;
    std::string wanted; ///< The file that is being printed to; empty on paper.
    std::string copy;   ///< What the toolkit writes meanwhile.

    QPrinter& Device() {
        if (!printer) {
            printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
            QObject::connect(qApp, &QObject::destroyed, qApp, [this] { Drop(); });
        }
        return *printer;
    }
    void Drop() {
        if (painter.isActive()) painter.end();
        GiveUpCopy();
        printer.reset();
    }
    /// A device that has failed prints nothing any more: another one with its settings takes its place.
    void Renew() {
        auto fresh = std::make_unique<QPrinter>(QPrinter::HighResolution);
        if (!printer->printerName().isEmpty()) fresh->setPrinterName(printer->printerName());
        fresh->setOutputFormat(printer->outputFormat());
        fresh->setOutputFileName(printer->outputFileName());
        fresh->setPageLayout(printer->pageLayout());
        fresh->setColorMode(printer->colorMode());
        fresh->setCopyCount(printer->copyCount());
        fresh->setDuplex(printer->duplex());
        printer = std::move(fresh);
    }
    bool ToFile() {
        return Device().outputFormat() == QPrinter::PdfFormat && !Device().outputFileName().isEmpty();
    }
    /// The toolkit does not tell when a disk gives way in the middle of a page: it writes beside, and what is
    /// whole goes to the user's file.
    void Begin() {
        if (ToFile()) {
            const auto make = [&](const std::string& folder) {
                return GetTempFileName(folder, "BI", 0, copy) != 0;
            };
            if (!TryTempFolders(make)) throw RuntimeError(kPathNotFound);
            wanted = Device().outputFileName().toStdString();
            Device().setOutputFileName(QString::fromStdString(copy));
        }
        if (painter.begin(&Device())) return;
        const std::string file = wanted;
        GiveUpCopy();
        throw RuntimeError(kDeviceUnavailable, file);
    }
    void End() {
        const bool ended = painter.end();
        if (!ended || Device().printerState() == QPrinter::Error) throw RuntimeError(kDeviceError);
        if (!wanted.empty()) DeliverCopy();
    }
    void DeliverCopy() {
        const std::string page = ReadWholeFile(copy, kLongestPage);
        if (page.find("%%EOF", page.size() < 32 ? 0 : page.size() - 32) == std::string::npos)
            RaiseFileError(ENOSPC, wanted);
        WriteFileAside(wanted, [&](File& file) { file.Write(std::as_bytes(std::span(page))); });
    }
    void GiveUpCopy() {
        if (wanted.empty()) return;
        if (printer) printer->setOutputFileName(QString::fromStdString(wanted));
        ResumeNext([this] { DeleteFile(copy); });
        wanted.clear();
    }
    /// The device, if there is something to print on.
    QPrinter& Ready() {
        QPrinter& device = Device();
        if (!fileForTests.empty()) return device;
        if (!ToFile() && (QPrinterInfo::availablePrinterNames().isEmpty() || !device.isValid()))
            throw RuntimeError(kDeviceUnavailable);
        return device;
    }
};

PrinterObject::PrinterObject() : native_(std::make_unique<Native>()) {}

PrinterObject::~PrinterObject() = default;

double PrinterObject::PixelsPerUnit() const {
    return scaleMode_ == kScaleTwips ? native_->Ready().resolution() / kTwipsPerInch : 1;
}

double PrinterObject::ScaleWidth() const {
    return native_->Ready().pageRect(QPrinter::DevicePixel).width() / PixelsPerUnit();
}

double PrinterObject::ScaleHeight() const {
    return native_->Ready().pageRect(QPrinter::DevicePixel).height() / PixelsPerUnit();
}

namespace {

/// The pixels of `length` that reach the page, from place `at` of `room`, all on one axis: those beyond its
/// end are never made, so that a photograph of 24 million pixels costs what a page holds.
int PixelsOnPage(double at, double scaledLength, int length, double room) {
    if (scaledLength <= 0 || at + scaledLength <= room) return length;
    const double share = (room - at) / scaledLength * length;
    return std::clamp(static_cast<int>(std::ceil(share)), 0, length);
}

} // namespace

void PrinterObject::PaintPicture(const Picture& picture, double x, double y, double width, double height) {
    QPrinter& device = native_->Ready();
    if (!native_->painter.isActive()) native_->Begin();
    const double scale = PixelsPerUnit();
    const QRectF page = device.pageRect(QPrinter::DevicePixel);
    const int columns = PixelsOnPage(x * scale, width * scale, picture.Width(), page.width());
    const int rows = PixelsOnPage(y * scale, height * scale, picture.Height(), page.height());
    if (columns == 0 || rows == 0) return;
    const QRectF place(x * scale, y * scale, width * scale * columns / picture.Width(),
                       height * scale * rows / picture.Height());
    // A page keeps the image's own colours: a PDF would hold them as JPEG.
    native_->painter.setRenderHint(QPainter::LosslessImageRendering);
    native_->painter.setClipRect(QRectF(0, 0, page.width(), page.height()));
    try {
        native_->painter.drawImage(place, ImageOf(Part(picture, columns, rows)));
    } catch (...) {
        // Half a page is no page, and the next one begins anew.
        device.abort();
        native_->painter.end();
        native_->GiveUpCopy();
        native_->Renew();
        throw;
    }
}

void PrinterObject::PaintPicture(const Picture& picture, double x, double y) {
    const double unitsPerPixel = scaleMode_ == kScaleTwips ? kTwipsPerPixel : 1;
    PaintPicture(picture, x, y, picture.Width() * unitsPerPixel, picture.Height() * unitsPerPixel);
}

void PrinterObject::EndDoc() {
    if (!native_->painter.isActive()) return;
    try {
        native_->End();
    } catch (...) {
        native_->GiveUpCopy();
        native_->Renew();
        throw;
    }
    native_->GiveUpCopy();
}

namespace {

constexpr int kPrinterNameLength = 32; // characters

/// The toolkit's dialog in the words and the looks of the program's own.
void Dress(QPrintDialog& dialog) {
    dialog.setWindowTitle("Configurar Impressora");
    if (auto* buttons = dialog.findChild<QDialogButtonBox*>()) {
        // Nothing is printed from here: the button keeps the settings.
        if (auto* accept = buttons->button(QDialogButtonBox::Ok)) accept->setText("OK");
        for (QAbstractButton* button : buttons->buttons())
            button->setIcon({});
    }
    // Else the name of a printer shows by half.
    if (auto* printers = dialog.findChild<QComboBox*>("printers"))
        printers->setMinimumContentsLength(kPrinterNameLength);
}

} // namespace

std::string PrinterObject::OutputFile() const {
    return native_->printer ? native_->printer->outputFileName().toStdString() : std::string{};
}

void PrinterObject::OutputFile(const std::string& path) {
    native_->Device().setOutputFileName(QString::fromStdString(path));
}

bool PrinterObject::ShowSetup() {
    QPrintDialog dialog(&native_->Device());
    Dress(dialog);
    PlaceOverOwner(dialog);
    return dialog.exec() == QDialog::Accepted;
}

void PrinterObject::PrintToFileForTests(const std::string& path) {
    native_->Drop();
    native_->fileForTests = path;
    if (path.empty()) return;
    native_->Device().setOutputFormat(QPrinter::PdfFormat);
    native_->Device().setOutputFileName(QString::fromStdString(path));
}

PrinterObject& Printer() {
    static PrinterObject printer;
    return printer;
}

} // namespace pintalux
