// A tool bar of buttons that are reached by position (from 1, separators counted) or by key.
#pragma once

#include "surface/window/Control.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace pintalux {

class ToolBar;
struct ToolButtonNative;

enum class ButtonStyle { Default, Check, ButtonGroup, Separator };

class ToolButton {
  public:
    ~ToolButton();
    int Index() const { return index_; } ///< From 1.
    const std::string& Key() const { return key_; }
    const std::string& Caption() const { return caption_; }
    bool Enabled() const { return enabled_; }
    void Enabled(bool value);
    int Value() const { return value_; } ///< 1 pressed, 0 not. Of a button group at most one is pressed.
    /// Presses or releases a check or group button without a `ButtonClick`; pressing one of a group releases
    /// the others. Error 380 outside 0 and 1. A plain button and a separator keep 0.
    void Value(int value);
    const std::string& ToolTipText() const { return toolTip_; }
    const std::string& Image() const { return image_; }
    void
    Image(std::string resource); ///< ":/icons/....svg"; where it is missing the caption shows, or the key.

  private:
    friend class ToolBar;
    ToolButton(ToolBar& bar, int index);
    void ShowPressed(int value);
    ToolBar& bar_;
    int index_;
    std::string key_, caption_, toolTip_, image_;
    ButtonStyle style_ = ButtonStyle::Default;
    bool enabled_ = true;
    int value_ = 0;
    std::unique_ptr<ToolButtonNative> native_;
};

/// The buttons of style `ButtonGroup` that stand together, without another style between, are a group.
class ToolBar : public Control {
  public:
    /// One row of the table that describes a tool bar.
    struct Row {
        const char* key;     ///< Null: a separator.
        const char* toolTip; ///< May be null.
        const char* image;   ///< SVG resource.
        ButtonStyle style = ButtonStyle::Default;
        const char* caption = nullptr;
        const char* spoken = nullptr; ///< What screen readers hear; null: the caption, or else the tool tip.
    };
    ToolBar(Container& parent, std::string name, const std::vector<Row>& rows);
    ~ToolBar() override;

    ToolButton& Buttons(int index);              ///< From 1; error 9 outside.
    ToolButton& Buttons(const std::string& key); ///< Exact; error 9 if there is none.
    int ButtonCount() const { return static_cast<int>(buttons_.size()); }
    /// Width of a button's picture in pixels; 24 at start.
    void ImageSize(int pixels);
    /// The height that the buttons need in a width, both in the container's unit: one row or, in a narrow
    /// bar, several.
    double HeightFor(double width) const;

    /// A click by hand: check and group buttons have taken their new value already.
    std::function<void(ToolButton&)> ButtonClick;

  private:
    friend class ToolButton;
    void AddButton(const Row& row);
    void Press(ToolButton& button);
    void ClickedByHand(ToolButton& button, bool pressed);
    std::vector<std::unique_ptr<ToolButton>> buttons_;
};

} // namespace pintalux
