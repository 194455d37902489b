// The toolkit half of the window objects; for the files of src/surface/window and src/surface/system only.
#pragma once

#include "surface/window/Control.h"

#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

namespace pintalux {

/// A control's widget. The toolkit deletes a child widget with its parent; the pointer then becomes null, and
/// every member of the control must live with that.
struct ControlNative {
    QPointer<QWidget> widget;
    QPointer<QWidget> client;       ///< Where children go, if that is not the widget itself.
    std::vector<Control*> children; ///< In the order of the Tab key.
    /// Whoever gives the control its place (a grid, the main window): called instead of placing the widget.
    std::function<void()> place;

    /// Takes over a place that the toolkit decided, in pixels of the container. Runs nothing.
    static void TakePlace(Control& control, const QRect& place);
};

/// The control's widget; null once the toolkit has deleted it.
QWidget* WidgetOf(const Control& control);

/// The widget that a container's children get as parent (the client area).
QWidget* ClientWidgetOf(const Container& container);

/// Gives a control its widget, once, in the constructor: sets the object name, shows it (a child), and routes
/// its pointer events to MouseDown, MouseMove, MouseUp, Click and DblClick. `ownsClick`: the widget's class
/// runs `Click` itself.
void InstallWidget(Control& control, QWidget* widget, bool ownsClick = false);

/// Units of the control's container in a pixel; twips for a window.
double UnitsPerPixelAround(const Control& control);

/// A length of the control's container in whole pixels, half to even. Error 6 out of the 32-bit range.
int PixelsAround(const Control& control, double length);

/// Where the control stands in its container, in pixels.
QRect PixelPlace(const Control& control);

/// Paints now what is out of date in the widget's window, and nothing else.
void FlushPaint(QWidget* widget);

/// Has a widget without parent deleted while the toolkit still lives, should its owner outlive the toolkit.
void DeleteBeforeExit(QWidget* widget);

inline QString ToQString(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace pintalux
