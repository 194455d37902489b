// The colours of windows, menus and controls.
#pragma once

#include <QPalette>
#include <QProxyStyle>

namespace pintalux {

/// The toolkit's own style, with edges that are seen in a dark theme, too.
class LookStyle final : public QProxyStyle {
  public:
    LookStyle() : QProxyStyle(QStringLiteral("Fusion")) {}
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

/// The palette for a desktop's: its own window, base, text and highlight colours, and what goes with them.
/// Text is moved away from its ground until it has a contrast of 4.5 to 1, also where it is switched off.
QPalette PaletteFor(const QPalette& desktop);

/// The contrast of two opaque colours, 1 to 21, whichever is the lighter.
double ContrastOf(const QColor& one, const QColor& other);

} // namespace pintalux
