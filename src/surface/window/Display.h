// Things laid over a surface: the stretching display, lines, shapes, labels. None changes a pixel of the
// surface.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/window/Control.h"
#include "surface/window/Surface.h"

#include <string>
#include <vector>

namespace pintalux {

class OverlayWidget;

/// Shows its picture stretched to its own size: larger in hard blocks, smaller as means. Pointer events come
/// in twips. Only what is visible is scaled, and only what differs from the picture before is painted again.
class Display : public Control {
  public:
    Display(Container& parent, std::string name);
    const pintalux::Picture& Picture() const { return picture_; }
    void Picture(pintalux::Picture value);
    /// Laid over the picture in the small face, in pixels of the display.
    void Texts(std::vector<ScreenText> texts);
    /// Shows a drawing of the program's resources (":/splash.svg") instead, sharp at every scale of the
    /// screen.
    void Art(const std::string& resource);

    ~Display() override;

  private:
    void PaintPicture();
    pintalux::Picture picture_;
    std::vector<ScreenText> texts_;
};

/// A line between two points of its container, in the container's unit; none where both are the same. Inverts
/// what lies under it, dotted, when `DrawMode` is 6; otherwise solid in `BorderColor`.
class LineControl : public Control {
  public:
    LineControl(Container& parent, std::string name);
    double X1() const { return x1_; }
    void X1(double value);
    double Y1() const { return y1_; }
    void Y1(double value);
    double X2() const { return x2_; }
    void X2(double value);
    double Y2() const { return y2_; }
    void Y2(double value);
    Colour BorderColor() const { return borderColor_; }
    void BorderColor(Colour value);
    int DrawMode() const { return drawMode_; }
    void DrawMode(int value);

    ~LineControl() override;

  protected:
    void Placed() override {} // Its ends place it.

  private:
    void MoveEnd(double& end, double value);
    OverlayWidget* Overlay() const;
    void MarkLine();
    double x1_ = 0, y1_ = 0, x2_ = 0, y2_ = 0;
    Colour borderColor_ = kBlack;
    int drawMode_ = kDrawCopyPen;
};

/// An outline: `Shape` 0 rectangle, 1 square, 2 oval, 3 circle. Inverting and dotted when `DrawMode` is 6. It
/// lets the pointer through.
class ShapeControl : public Control {
  public:
    ShapeControl(Container& parent, std::string name);
    int Shape() const { return shape_; }
    void Shape(int value); ///< Error 380 outside 0 to 3.
    int BorderWidth() const { return borderWidth_; }
    void BorderWidth(int value);
    Colour BorderColor() const { return borderColor_; }
    void BorderColor(Colour value);
    int DrawMode() const { return drawMode_; }
    void DrawMode(int value);

    ~ShapeControl() override;

  protected:
    void Placed() override;

  private:
    OverlayWidget* Overlay() const;
    int shape_ = 0;
    int borderWidth_ = 1;
    Colour borderColor_ = kBlack;
    int drawMode_ = kDrawCopyPen;
};

/// Text. Grows with its caption unless it was given a size or is laid out by a grid.
class Label : public Control {
  public:
    Label(Container& parent, std::string name, std::string caption = {});
    const std::string& Caption() const { return caption_; }
    void Caption(std::string value);
    Colour ForeColor() const { return foreColor_; }
    void ForeColor(Colour value);
    /// Shown behind the text; -1 (at start) lets the container shine through.
    void BackColor(Colour value);
    const std::string& FontName() const { return font_.name; }
    void FontName(std::string value);
    double FontSize() const { return font_.size; }
    void FontSize(double value);
    bool FontBold() const { return font_.bold; }
    void FontBold(bool value);
    bool FontItalic() const { return font_.italic; }
    void FontItalic(bool value);
    bool FontUnderline() const { return font_.underline; }
    void FontUnderline(bool value);
    bool FontStrikethru() const { return font_.strikethru; }
    void FontStrikethru(bool value);
    /// 0 left, 1 right, 2 centre.
    void Alignment(int value);
    /// A text too wide for the label goes on in the next line, behind a blank or, in a long word, anywhere.
    void WordWrap(bool value);
    /// How wide a grid may make the label at most, in twips.
    void WidestLine(double twips);

  protected:
    void Placed() override;

  private:
    void FontChanged();
    void FitToCaption();
    void ShowCaption();
    bool wordWrap_ = false;
    bool sized_ = false; ///< The program gave it a size, or a grid places it.
    std::string caption_;
    Colour foreColor_ = kBlack;
    Font font_;
};

} // namespace pintalux
