// The default printer as a surface in pixels of the page.
#pragma once

#include "surface/raster/Bitmap.h"

#include <cstdint>
#include <memory>
#include <string>

namespace pintalux {

class PrinterObject {
  public:
    PrinterObject();
    ~PrinterObject();
    /// Printable size in the unit of the scale: 3 pixels (of the printer), 1 twips. Error 68 without a
    /// printer.
    double ScaleWidth() const;
    double ScaleHeight() const;
    int ScaleMode() const { return scaleMode_; }
    void ScaleMode(int value) { scaleMode_ = value; }
    /// Starts the document at the first call. Place and size are in the unit of the scale; what passes the
    /// page's edge is cut off. Error 68 without a printer.
    void PaintPicture(const Picture& picture, double x, double y, double width, double height);
    /// At the picture's natural size: a pixel is 15 twips.
    void PaintPicture(const Picture& picture, double x, double y);
    /// Where the next print goes; the program's own note, nothing moves it.
    double CurrentX() const { return currentX_; }
    void CurrentX(double value) { currentX_ = value; }
    double CurrentY() const { return currentY_; }
    void CurrentY(double value) { currentY_ = value; }
    /// Sends the document off, if one was started; error 57 if that fails. A file that is printed to is
    /// replaced whole, or stays as it was with an error of the file layer.
    void EndDoc();
    /// The file that the user prints to instead of paper; empty for a printer.
    std::string OutputFile() const;
    void OutputFile(const std::string& path);
    /// The desktop's printer dialog; false on cancel.
    bool ShowSetup();
    /// Tests: prints to a PDF file instead; empty takes it back.
    void PrintToFileForTests(const std::string& path);

  private:
    double PixelsPerUnit() const;
    struct Native;
    std::unique_ptr<Native> native_;
    int scaleMode_ = 1;
    double currentX_ = 0, currentY_ = 0;
};
PrinterObject& Printer();

} // namespace pintalux
