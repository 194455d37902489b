#include "surface/system/Printer.h"

#include "base/RuntimeError.h"
#include "surface/system/ToolkitImages_native.h"
#include "surface/window/Control.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

namespace pintalux {

namespace {

constexpr double kTwipsPerInch = 1440;

} // namespace

/// The toolkit's printer is made at its first use, and ends with the toolkit.
struct PrinterObject::Native {
    std::unique_ptr<QPrinter> printer;
    QPainter painter;
    std::string fileForTests;

    QPrinter& Device() {
        if (!printer) {
            printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
            QObject::connect(qApp, &QObject::destroyed, qApp, [this] { Drop(); });
        }
        return *printer;
    }
    void Drop() {
        if (painter.isActive()) painter.end();
        printer.reset();
    }
    /// The device, if there is something to print on.
    QPrinter& Ready() {
        QPrinter& device = Device();
        if (!fileForTests.empty()) return device;
        const bool toFile =
            device.outputFormat() == QPrinter::PdfFormat && !device.outputFileName().isEmpty();
        if (!toFile && (QPrinterInfo::availablePrinterNames().isEmpty() || !device.isValid()))
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

void PrinterObject::PaintPicture(const Picture& picture, double x, double y, double width, double height) {
    QPrinter& device = native_->Ready();
    if (!native_->painter.isActive() && !native_->painter.begin(&device))
        throw RuntimeError(kDeviceUnavailable);
    const double scale = PixelsPerUnit();
    native_->painter.drawImage(QRectF(x * scale, y * scale, width * scale, height * scale), ImageOf(picture));
}

void PrinterObject::EndDoc() {
    if (!native_->painter.isActive()) return;
    const bool ended = native_->painter.end();
    if (!ended || native_->Device().printerState() == QPrinter::Error) throw RuntimeError(kDeviceError);
}

bool PrinterObject::ShowSetup() {
    QPrintDialog dialog(&native_->Device(), QApplication::activeWindow());
    dialog.setWindowTitle("Configurar Impressora");
    // Nothing is printed from here: the button keeps the settings.
    if (auto* buttons = dialog.findChild<QDialogButtonBox*>())
        if (auto* accept = buttons->button(QDialogButtonBox::Ok)) accept->setText("OK");
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
