// What all window objects have in common: a place in a container, visibility, pointer events.
//
// Properties are pairs of members: `Left()` reads, `Left(x)` writes. Left, Top, Width and Height are in the
// unit of the container: pixels inside a surface in pixels, twips on a form. 15 twips are a pixel, and a
// pixel is the toolkit's logical pixel. They keep the double that was assigned. Only the widget, and the
// bitmap of a surface, round it to whole pixels, half to even: a width of 18.75 pixels shows as 19 and
// reads 18.75.
//
// Events are function members that the form fills. A handler that the toolkit starts runs under `RunEvent`;
// a handler that runs nested in an assignment passes its errors to the assigning statement.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace pintalux {

class Container;
struct ControlNative;

inline constexpr int kTwipsPerPixel = 15;

enum PointerShape : int {
    kPointerDefault = 0,
    kPointerCross = 2,
    kPointerHourglass = 11,
    kPointerSizeAll = 15,
    kPointerCustom = 99,
};

enum MouseButtonBits : int { kLeftButton = 1, kRightButton = 2, kMiddleButton = 4 };
enum ShiftBits : int { kShiftMask = 1, kCtrlMask = 2, kAltMask = 4 };

/// A pointer picture: the name of an SVG of the program's resources (":/icons/eye.svg"), and its hot spot in
/// pixels.
struct Icon {
    std::string resource;
    int hotX = 0;
    int hotY = 0;
    bool operator==(const Icon&) const = default;
};

using PointerEvent = std::function<void(int Button, int Shift, double X, double Y)>;

/// A key that was pressed or released. Letters and digits have the code of their capital, F1 is 112, the
/// arrows are 37 (left), 38, 39, 40 (down).
struct KeyStroke {
    int code = 0;
    int shift = 0;         ///< `ShiftBits`
    bool repeated = false; ///< The key is held down.
};

/// A turn of the wheel at a place, in the unit of pointer events. A notch is 120; finer devices send less.
struct WheelTurn {
    int shift = 0; ///< `ShiftBits`
    double x = 0, y = 0;
    double right = 0, down = 0; ///< Which way the view is to go.
};

enum class FocusBy { Nothing, Tab, TabAndClick };
enum class SpokenRole { Button, Group, Canvas, Colours };

class Control {
  public:
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control();

    /// The code name, also the toolkit's object name.
    const std::string& Name() const { return name_; }

    double Left() const { return left_; }
    void Left(double value);
    double Top() const { return top_; }
    void Top(double value);
    double Width() const { return width_; }
    void Width(double value); ///< Error 380 if negative.
    double Height() const { return height_; }
    void Height(double value); ///< Error 380 if negative.
    /// All four at once, one repaint.
    void Move(double left, double top, double width, double height);

    /// The property as the program set it, whether or not the toolkit shows the control at the moment.
    bool Visible() const { return visible_; }
    void Visible(bool value);
    bool Enabled() const { return enabled_; }
    void Enabled(bool value);
    const std::string& Tag() const { return tag_; }
    void Tag(std::string value) { tag_ = std::move(value); }

    int MousePointer() const { return mousePointer_; }
    void MousePointer(int value); ///< A `PointerShape`.
    const Icon& MouseIcon() const { return mouseIcon_; }
    void MouseIcon(Icon value); ///< Shown while `MousePointer` is 99.

    const std::string& ToolTipText() const { return toolTip_; }
    void ToolTipText(std::string value);
    /// What a screen reader says; as a rule the text of the control's label.
    void AccessibleName(const std::string& value);
    /// What screen readers take it for, where the toolkit does not know.
    void AccessibleRole(SpokenRole role);

    void SetFocus();
    bool HasFocus() const;
    /// What gives it the focus.
    void TakesFocus(FocusBy how);
    /// The focus that a click would give it goes to another control.
    void LeavesFocusTo(const Control& other);
    /// The Tab key reaches it, Space and Enter press it, and screen readers take it for a button.
    void PressedByKeys(std::function<void()> press);
    /// In front of its siblings.
    void BringToFront();
    /// Repaints at once what is out of date.
    virtual void Refresh();

    /// Button and Shift are bit masks. X and Y: twips on a display, the surface's own unit on a surface,
    /// twips elsewhere.
    PointerEvent MouseDown;
    PointerEvent MouseMove;
    PointerEvent MouseUp;
    std::function<void()> Click;
    std::function<void()> DblClick;
    /// The wheel over it, or over a control in it that does not hear of the wheel itself.
    std::function<void(const WheelTurn&)> MouseWheel;
    /// A key while it has the focus, but for Tab. True: the key is used up.
    std::function<bool(const KeyStroke&)> Key;
    std::function<bool(const KeyStroke&)> KeyReleased;
    /// It got or lost the focus; `byKeys`: by the Tab key or a short cut.
    std::function<void(bool got, bool byKeys)> FocusMoved;

    ControlNative& Native() const { return *native_; }
    /// The container that holds it; null for a window.
    Container* Parent() const { return parent_; }

  protected:
    friend class Container;
    friend struct ControlNative;
    /// `parent` is null for a window only. Controls start shown and enabled, 0 by 0 at 0, 0.
    Control(Container* parent, std::string name);

    Container* parent_;
    std::string name_;
    double left_ = 0;
    double top_ = 0;
    double width_ = 0;
    double height_ = 0;
    bool hasPlace_ = false; ///< Left or Top were assigned; 0, 0 is a place too.
    bool visible_ = true;
    bool enabled_ = true;
    int mousePointer_ = kPointerDefault;
    Icon mouseIcon_;
    std::string tag_;
    std::string toolTip_;
    std::unique_ptr<ControlNative> native_;

    /// Called after Left, Top, Width or Height changed; places the widget. A surface also resizes its bitmap.
    virtual void Placed();
    /// Called after Visible changed; shows or hides the widget.
    virtual void VisibleChanged();

  private:
    void Assign(double& member, double value);
};

enum ScaleModeValue : int { kScaleTwips = 1, kScalePoints = 2, kScalePixels = 3 };

/// A control that holds others and has a unit for them.
class Container : public Control {
  public:
    int ScaleMode() const { return scaleMode_; }
    /// A `ScaleModeValue`; children keep their place on the screen.
    void ScaleMode(int value);
    /// Interior size in the container's unit.
    double ScaleWidth() const;
    double ScaleHeight() const;
    double ScaleLeft() const { return 0; }

    /// Units of this container in one pixel: 1, 15 or 0.75.
    double UnitsPerPixel() const;
    /// Interior size in pixels.
    virtual int PixelWidth() const = 0;
    virtual int PixelHeight() const = 0;

  protected:
    Container(Container* parent, std::string name, int scaleMode);
    int scaleMode_;
};

} // namespace pintalux
