#include "surface/system/Theme_native.h"

#include "surface/window/Painting_native.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>
#include <cmath>

namespace pintalux {

namespace {

constexpr double kReadable = 4.5;
/// Lines that carry a meaning.
constexpr double kSeen = 3;
/// Buttons and frames tint their ground.
constexpr double kFadedReadable = 5;
constexpr double kSteps = 100; // fine ones, so that a ground stays dark enough for white text
/// Windows below this luminance are a dark theme's.
constexpr double kDark = 0.2;

/// How bright a colour looks, 0 to 1.
double Luminance(const QColor& colour) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(static_cast<double>(colour.redF())) +
           0.7152 * linear(static_cast<double>(colour.greenF())) +
           0.0722 * linear(static_cast<double>(colour.blueF()));
}

QColor Mixed(const QColor& one, const QColor& other, double share) {
    const auto mix = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

/// The colour itself, or moved towards black or white as far as it takes to be read on a ground.
QColor ReadableOn(const QColor& ground, const QColor& colour, double contrast = kReadable) {
    const bool toWhite = ContrastOf(Qt::white, ground) > ContrastOf(Qt::black, ground);
    for (double step = 0; step < kSteps; ++step) {
        const QColor moved = Mixed(colour, toWhite ? Qt::white : Qt::black, step / kSteps);
        if (ContrastOf(moved, ground) >= contrast) return moved;
    }
    return toWhite ? Qt::white : Qt::black;
}

class PaletteMaker {
  public:
    explicit PaletteMaker(const QPalette& desktop) : desktop_(desktop) {}

    QPalette Make() {
        const QColor window = Of(QPalette::Window);
        const QColor base = Of(QPalette::Base);
        const QColor button = Of(QPalette::Button);
        Set(QPalette::Window, window);
        Set(QPalette::Base, base, window);
        Set(QPalette::AlternateBase, Mixed(base, Of(QPalette::Text), 0.04), window);
        Set(QPalette::Button, button);
        Text(QPalette::WindowText, window, Lit(button));
        Text(QPalette::Text, base, Lit(window));
        Text(QPalette::ButtonText, button, Lit(button));
        const QColor text = ReadableOn(base, Of(QPalette::Text));
        const QColor faded = Faded(text, window);
        Set(QPalette::PlaceholderText, Faded(text, base), faded);
        Shades(window);
        const QColor highlight = ReadableOn(window, Of(QPalette::Highlight), kSeen);
        const QColor marked = ReadableOn(highlight, Of(QPalette::HighlightedText));
        const QColor dull = Mixed(window, Of(QPalette::WindowText), 0.25);
        Set(QPalette::Highlight, highlight, dull);
        Set(QPalette::HighlightedText, marked, ReadableOn(dull, window));
        Set(QPalette::BrightText, Qt::white, Qt::white);
        Set(QPalette::ToolTipBase, base, base);
        Set(QPalette::ToolTipText, text, text);
        Set(QPalette::Link, ReadableOn(base, Of(QPalette::Link)), faded);
        Set(QPalette::LinkVisited, ReadableOn(base, Of(QPalette::LinkVisited)), faded);
        return made_;
    }

  private:
    QColor Of(QPalette::ColorRole role) const { return desktop_.color(QPalette::Active, role); }

    void Set(QPalette::ColorRole role, const QColor& on, const QColor& off) {
        made_.setColor(role, on);
        made_.setColor(QPalette::Disabled, role, off);
    }
    void Set(QPalette::ColorRole role, const QColor& colour) { Set(role, colour, colour); }

    /// What the style makes of a dark ground below pages, frames and buttons.
    static QColor Lit(const QColor& ground) {
        return Luminance(ground) < kDark ? ground.lighter(130) : ground;
    }

    /// Switched off: nearer to its ground, and still read.
    static QColor Faded(const QColor& text, const QColor& ground) {
        return ReadableOn(ground, Mixed(text, ground, 0.45), kFadedReadable);
    }
    void Text(QPalette::ColorRole role, const QColor& ground, const QColor& groundOff) {
        const QColor on = ReadableOn(ground, Of(role));
        Set(role, on, Faded(on, groundOff));
    }

    /// The edges of controls: from the lit one to the shadow.
    void Shades(const QColor& window) {
        const bool dark = Luminance(window) < kDark;
        const auto shade = [&](double share, const QColor& to) { return Mixed(window, to, share); };
        Set(QPalette::Light, dark ? shade(0.08, Qt::white) : QColor(Qt::white));
        Set(QPalette::Midlight, dark ? shade(0.14, Qt::white) : shade(0.05, Qt::black));
        Set(QPalette::Mid, dark ? shade(0.25, Qt::white) : shade(0.23, Qt::black));
        Set(QPalette::Dark, dark ? shade(0.40, Qt::white) : shade(0.42, Qt::black));
        Set(QPalette::Shadow, dark ? shade(0.60, Qt::black) : shade(0.56, Qt::black));
    }

    const QPalette& desktop_;
    QPalette made_;
};

} // namespace

double ContrastOf(const QColor& one, const QColor& other) {
    const double a = Luminance(one);
    const double b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

namespace {

// The style's own is a faint tint, which is lost in a dark theme; a default button shows none at all.
void PaintFocus(const QStyleOption& option, const QRect& place, QPainter& painter) {
    if (!option.state.testFlag(QStyle::State_KeyboardFocusChange)) return;
    PaintFocusFrame(painter, place, option.palette);
}

void PaintFocusByKeys(const QStyleOption& option, const QRect& place, QPainter& painter) {
    if (option.state.testFlag(QStyle::State_HasFocus)) PaintFocus(option, place, painter);
}

} // namespace

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    if (element == PE_FrameFocusRect) return PaintFocus(*option, option->rect, *painter);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (Luminance(option->palette.color(QPalette::Window)) > kDark) return;
    const QColor edge = option->palette.color(QPalette::Dark);
    const bool focus = option->state.testFlag(State_HasFocus);
    if (element == PE_IndicatorCheckBox || (element == PE_FrameLineEdit && !focus))
        PaintFrame(*painter, option->rect, edge);
    if (element == PE_FrameLineEdit && focus) PaintFocusFrame(*painter, option->rect, option->palette);
    if (element != PE_IndicatorRadioButton) return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(edge);
    painter->setBrush(Qt::NoBrush);
    painter->drawEllipse(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5));
    painter->restore();
}

void LookStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_PushButton) return PaintFocusByKeys(*option, option->rect, *painter);
    constexpr int kInside = 3;
    const QRect inside = option->rect.adjusted(kInside, kInside, -kInside, -kInside);
    if (element == CE_TabBarTabLabel) PaintFocusByKeys(*option, inside, *painter);
}

// Some desktops put pictures on the buttons of the toolkit's dialogs, which no other button here has.
int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returned) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

namespace {

// The style writes an active title in white, with a shadow in the colour of texts, which is a second, light
// title in a dark theme; any other in black. What is read on the ground counts: a dark theme's other titles
// are drawn as active ones, and an active one on a light ground as another.
QStyleOptionTitleBar ReadableTitle(const QStyleOptionTitleBar& title) {
    QStyleOptionTitleBar shown(title);
    const bool active = (title.titleBarState & QStyle::State_Active) != 0;
    const QColor ground = title.palette.color(active ? QPalette::Highlight : QPalette::Window);
    const bool white = ContrastOf(Qt::white, ground) >= (active ? kSeen : ContrastOf(Qt::black, ground));
    shown.titleBarState = white ? title.titleBarState | QStyle::State_Active
                                : title.titleBarState & ~static_cast<int>(QStyle::State_Active);
    shown.palette.setColor(white ? QPalette::Highlight : QPalette::Window, ground);
    shown.palette.setColor(QPalette::Text, Qt::black);
    return shown;
}

} // namespace

void LookStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    if (const auto* title = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
        control == CC_TitleBar && title) {
        const QStyleOptionTitleBar shown = ReadableTitle(*title);
        return QProxyStyle::drawComplexControl(control, &shown, painter, widget);
    }
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_Slider && slider && Luminance(option->palette.color(QPalette::Window)) <= kDark) {
        // It draws groove and ticks in a shade of the window, darker by these parts in a hundred.
        constexpr int kDarkerBy = 140;
        QStyleOptionSlider lit(*slider);
        lit.palette.setColor(QPalette::Window, option->palette.color(QPalette::Dark).lighter(kDarkerBy));
        QProxyStyle::drawComplexControl(control, &lit, painter, widget);
    } else if (const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option)) {
        // Its own frame would lie on the picture.
        QStyleOptionToolButton bare(*button);
        bare.state &= ~State_KeyboardFocusChange;
        QProxyStyle::drawComplexControl(control, &bare, painter, widget);
    } else {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
    if (control == CC_Slider)
        PaintFocusByKeys(*option, subControlRect(control, option, SC_SliderHandle, widget), *painter);
    if (control == CC_ComboBox || control == CC_ToolButton) PaintFocusByKeys(*option, option->rect, *painter);
}

QPalette PaletteFor(const QPalette& desktop) {
    return PaletteMaker(desktop).Make();
}

} // namespace pintalux
