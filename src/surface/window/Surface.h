// The surface: a rectangular drawing area with a persistent bitmap.
//
// It keeps two layers: the stored `Picture` (over `BackColor`), and what was drawn on top. `Cls` goes back to
// the first; `Image` is a snapshot of both. `A.Picture(B.Image())` copies a whole surface for the price of a
// pointer, `A.Picture(A.Image())` makes drawn pixels permanent.
#pragma once

#include "surface/raster/DeviceContext.h"
#include "surface/raster/Region.h"
#include "surface/window/Control.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pintalux {

/// The font of printing and of labels. Size in points.
struct Font {
    std::string name = "Sans Serif";
    double size = 8;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikethru = false;
    bool operator==(const Font&) const = default;
};

/// A line of text that lies over a bitmap on the screen alone: drawn in the screen's own pixels, whatever its
/// scale. The place is that of its left top corner, in pixels.
struct ScreenText {
    int x = 0;
    int y = 0;
    std::string text;
    Colour colour = kBlack;
};

struct SurfaceNative;

class Surface : public Container {
  public:
    /// A visible, empty, white surface in pixels without border, 0 by 0.
    Surface(Container& parent, std::string name);
    ~Surface() override;

    Colour BackColor() const { return backColor_; }
    // Intended: setting BackColor acts like Cls, so that an emptied surface shows the new colour at once.
    void BackColor(Colour value);

    const pintalux::Picture& Picture() const { return picture_; }
    /// Replaces the contents: the picture at the top left corner, `BackColor` around it. The empty picture
    /// leaves only `BackColor`. With `AutoSize` the surface takes the picture's size (not that of the empty
    /// one).
    void Picture(pintalux::Picture value);
    /// What the surface shows, drawn pixels included. While `AutoRedraw` is off: without what was drawn
    /// since.
    pintalux::Picture Image() const { return stretched_ ? Stretched() : persistent_; }

    /// Draws a picture over the whole surface, stretched to its size, with `transparent` as the colour of
    /// what does not belong to it: on the screen what lies below shows there. A surface as large as a zoomed
    /// view costs the picture alone; its bitmap, with pixels repeated or dropped as `StretchBlt` does, is
    /// made when somebody asks for it. Reduced on the screen the picture shows as means.
    void ShowStretched(pintalux::Picture value, Colour transparent);
    /// What of the surface is not in a colour, to clip it to; reduced, all that holds anything of its
    /// picture.
    Region ShapeWithout(Colour colour) const;

    bool AutoRedraw() const { return !screen_.has_value(); }
    /// Off: drawing goes to the screen only, and `Image` does not see it. On again: that drawing is gone.
    void AutoRedraw(bool value);
    bool AutoSize() const { return autoSize_; }
    void
    AutoSize(bool value); ///< Switched on, the surface takes the size of its picture at once, if it has one.

    /// The device context; refers to the persistent bitmap, or to the screen while `AutoRedraw` is off.
    DeviceContext& hDC() {
        Settle();
        return dc_;
    }
    const DeviceContext& hDC() const { ///< To read from.
        Settle();
        return dc_;
    }

    Colour ForeColor() const { return attributes_.ForeColor; }
    void ForeColor(Colour value) { attributes_.ForeColor = value; }
    Colour FillColor() const { return attributes_.FillColor; }
    void FillColor(Colour value) { attributes_.FillColor = value; }
    int FillStyle() const { return attributes_.FillStyle; }
    void FillStyle(int value) { attributes_.FillStyle = value; }
    int DrawMode() const { return attributes_.DrawMode; }
    void DrawMode(int value) { attributes_.DrawMode = value; }
    int DrawStyle() const { return attributes_.DrawStyle; }
    void DrawStyle(int value) { attributes_.DrawStyle = value; }
    int DrawWidth() const { return attributes_.DrawWidth; }
    void DrawWidth(int value); ///< Pixels; error 380 below 1 or above 32767.

    /// Where the next print goes, in pixels.
    double CurrentX() const { return currentX_; }
    void CurrentX(double value) { currentX_ = value; }
    double CurrentY() const { return currentY_; }
    void CurrentY(double value) { currentY_ = value; }

    const std::string& FontName() const { return font_.name; }
    void FontName(std::string value) { font_.name = std::move(value); }
    double FontSize() const { return font_.size; }
    void FontSize(double value) { font_.size = value; }
    bool FontBold() const { return font_.bold; }
    void FontBold(bool value) { font_.bold = value; }
    bool FontItalic() const { return font_.italic; }
    void FontItalic(bool value) { font_.italic = value; }
    bool FontUnderline() const { return font_.underline; }
    void FontUnderline(bool value) { font_.underline = value; }
    bool FontStrikethru() const { return font_.strikethru; }
    void FontStrikethru(bool value) { font_.strikethru = value; }

    // Operations. Coordinates are pixels and round half to even; out of the 32-bit range is error 6.
    void Cls();
    Colour Point(double x, double y) const; ///< -1 outside.
    void PSet(double x, double y, Colour colour);
    void Line(double x1, double y1, double x2, double y2, Colour colour);
    void LineB(double x1, double y1, double x2, double y2, Colour colour);  ///< The rectangle.
    void LineBF(double x1, double y1, double x2, double y2, Colour colour); ///< The filled rectangle.
    void Circle(double x, double y, double radius, Colour colour);
    /// Copies (x2, y2, w2, h2) of the picture to (x1, y1, w1, h1), stretching; negative sizes mirror.
    void PaintPicture(const pintalux::Picture& picture, double x1, double y1, double w1, double h1, double x2,
                      double y2, double w2, double h2, std::uint32_t rop);
    /// Draws a line of text at `CurrentX`, `CurrentY` in the surface's font and `ForeColor`, without
    /// smoothing; then `CurrentX` is 0 and `CurrentY` below the line.
    void Print(const std::string& text);
    /// From now on what is printed is no pixel of the bitmap: it becomes one of `Texts`, until the next
    /// `Cls`.
    void PrintsOver() { printsOver_ = true; }
    const std::vector<ScreenText>& Texts() const { return texts_; }
    /// Makes it a part of the desktop instead of a picture: it shows the window colour of the desktop's
    /// theme, whatever its bitmap, and prints over in the desktop's font.
    void AsPanel();
    /// Repaints at once. While `AutoRedraw` is off, what was drawn on the screen only is gone.
    void Refresh() override;

    /// A raised or sunken edge drawn inside the surface's widget; 0 none, 1 a thin line. No pixel of the
    /// bitmap.
    void BorderStyle(int value);

    int PixelWidth() const override;
    int PixelHeight() const override;

    /// Hears of a change of size from outside the program (an aligned panel of the main window).
    std::function<void()> Resize;

  protected:
    void Placed() override;

  private:
    friend struct SurfaceNative;
    void ResetPersistent();
    void ResizeBitmaps();
    void TakePictureSize();
    void Changed(const Box& box);
    pintalux::Picture Stretched() const;
    void Settle() const;
    void EndStretched() const;

    /// A picture that is shown without a bitmap of the surface's size.
    struct StretchedPicture {
        pintalux::Picture picture;
        Colour transparent;
    };

    Colour backColor_ = kWhite;
    pintalux::Picture picture_;
    mutable Bitmap persistent_; ///< Blank while `stretched_` has the contents.
    mutable std::optional<StretchedPicture> stretched_;
    std::optional<Bitmap> screen_;
    bool autoSize_ = false;
    bool drawn_ = false; ///< Something was drawn since the contents were last reset.
    DrawAttributes attributes_;
    Font font_;
    bool printsOver_ = false;
    std::vector<ScreenText> texts_;
    double currentX_ = 0;
    double currentY_ = 0;
    DeviceContext dc_;
    std::unique_ptr<SurfaceNative> surface_;
};

/// Clips what a surface shows, and where it takes the pointer, to a region in its pixels. The empty region of
/// no stripes hides it whole.
void SetWindowRgn(Surface& surface, const Region& region);

} // namespace pintalux
