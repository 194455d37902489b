// The toolkit half of the tool bar: a row of flat buttons that wraps where the bar is too narrow.
#pragma once

#include <QPointer>
#include <QToolButton>
#include <QWidget>
#include <vector>

namespace pintalux {

struct ToolButtonNative {
    QPointer<QToolButton> button; ///< Null for a separator.
};

/// The toolkit's own tool bar hides in a menu what does not fit; this one goes on in a second row. The Tab
/// key reaches one button of it, from where the arrow keys, Home and End move to the others.
class BarWidget final : public QWidget {
  public:
    explicit BarWidget(QWidget* parent);
    QToolButton* AddButton();
    void AddSeparator();
    /// After a change of a button's size or text.
    void Arrange();
    /// After a button was switched on or off: the Tab key must reach one that is on.
    void KeepTabStop();

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return Flow(width, false).height(); }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Item {
        QToolButton* button; ///< Null for a separator.
        QRect place;
    };
    /// The size in pixels that the items take in a width; moves them there if asked.
    QSize Flow(int width, bool move) const;
    /// Where an arrow key, Home or End leads from a button. False if the button is switched off.
    bool MoveFocus(const QToolButton* from, int key);
    /// Has the Tab key stop at this button alone.
    void MakeTabStop(QToolButton* button);

    mutable std::vector<Item> items_;
};

} // namespace pintalux
