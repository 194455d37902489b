// The windows behind forms: how they are made, sized, placed and shown, and what they report.
#include "surface/window/Control_native.h"
#include "surface/window/Events.h"
#include "surface/window/FormWindow_native.h"

#include <QApplication>
#include <QLayout>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QScreen>

#include <algorithm>

namespace pintalux {

namespace {

Qt::WindowFlags FlagsOf(Form::Kind kind) {
    switch (kind) {
    case Form::Kind::Dialog:
        return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
    case Form::Kind::Splash:
        return Qt::SplashScreen | Qt::FramelessWindowHint;
    default:
        return Qt::Window;
    }
}

} // namespace

void FormNative::MakeWindow() {
    QWidget* window = nullptr;
    if (IsChild()) {
        auto* sub = new FormWindow<QMdiSubWindow>(*this, nullptr);
        auto* client = new ClientArea(*this, sub);
        form.Native().client = client;
        sub->setWidget(client);
        window = sub;
    } else if (form.kind_ == Form::Kind::Main) {
        window = new FormWindow<QMainWindow>(*this);
    } else if (form.kind_ == Form::Kind::Splash) {
        window = new FormWindow<QWidget>(*this, nullptr, FlagsOf(form.kind_));
    } else {
        window = new DialogWindow(*this, nullptr, FlagsOf(form.kind_));
    }
    InstallWidget(form, window);
    DeleteBeforeExit(window);
}

Form::Life& FormNative::LastingLife() const {
    return form.life_ == Form::Life::Unloading ? form.lifeIfRefused_ : form.life_;
}

QMdiSubWindow* FormNative::SubWindow() const {
    return static_cast<QMdiSubWindow*>(WidgetOf(form));
}

QSize FormNative::WantedClient() const {
    const double width = form.width_ - (IsChild() ? kChildFrameWidth : 0);
    const double height = form.height_ - (IsChild() ? kChildFrameHeight : 0);
    return {std::max(0, PixelsAround(form, width)), std::max(0, PixelsAround(form, height))};
}

QSize FormNative::ActualClient() const {
    return IsChild() ? ClientWidgetOf(form)->size() : WidgetOf(form)->size();
}

/// Width and Height follow the window; values that already stand for its size stay as they were assigned.
void FormNative::TakeActualSize() {
    const QSize wanted = WantedClient();
    const QSize actual = ActualClient();
    if (actual.width() != wanted.width())
        form.width_ = actual.width() * kTwipsPerPixel + (IsChild() ? kChildFrameWidth : 0);
    if (actual.height() != wanted.height())
        form.height_ = actual.height() * kTwipsPerPixel + (IsChild() ? kChildFrameHeight : 0);
}

/// Sizes the window so that the client area gets what Width and Height say, whatever the frame takes.
void FormNative::SizeWindow() {
    QWidget* window = WidgetOf(form);
    const QSize wanted = WantedClient();
    if (!IsChild()) {
        if (form.kind_ == Form::Kind::Dialog && !window->layout() && !wanted.isEmpty())
            window->setFixedSize(wanted);
        if (!window->layout() || form.kind_ == Form::Kind::Main) window->resize(wanted);
        return;
    }
    // The frame's size is known by looking: twice, since a first sizing may change the frame.
    for (int attempt = 0; attempt < 2 && ActualClient() != wanted; ++attempt) {
        window->resize(window->size() + wanted - ActualClient());
        window->layout()->activate();
    }
}

void FormNative::Place() {
    QWidget* window = WidgetOf(form);
    if (!window) return;
    const int current = form.WindowState();
    if (WasShown() && current == kMaximised) return TakeActualSize();
    if (WasShown() && current == kMinimised) {
        sizeKept = true;
        return;
    }
    const QPoint place = PixelPlace(form).topLeft();
    {
        const FromUs ours(placing);
        if (!IsChild() || WasShown()) SizeWindow();
        if (form.hasPlace_ && window->pos() != place) window->move(place);
    }
    if (!WasShown() || WantedClient() == heard) return;
    heard = WantedClient();
    form.Form_Resize();
}

void FormNative::ShowWindow() {
    QWidget* window = WidgetOf(form);
    switch (state) {
    case kMinimised:
        window->showMinimized();
        break;
    case kMaximised:
        window->showMaximized();
        break;
    default:
        window->isMaximized() || window->isMinimized() ? window->showNormal() : window->show();
    }
    if (!IsChild()) window->raise();
}

void FormNative::FirstShowing() {
    {
        const FromUs ours(placing);
        SizeAndMoveUnseen();
        if (host) {
            host->WhileShowing([this] { ShowWindow(); });
        } else {
            ShowWindow();
        }
        LastingLife() = Form::Life::Shown;
        // Only a window that shows knows its frame.
        if (IsChild() && form.WindowState() == kNormal) SizeWindow();
    }
    TakeActualSize();
    heard = WantedClient();
    form.Form_Resize();
}

void FormNative::SizeAndMoveUnseen() {
    QWidget* window = WidgetOf(form);
    if (!IsChild()) {
        if (window->layout() && form.kind_ != Form::Kind::Main) window->adjustSize();
        SizeWindow();
    }
    // Also where the window has that place already: only a move tells the desktop not to choose another.
    if (form.hasPlace_) return window->move(PixelPlace(form).topLeft());
    if (IsChild()) window->move(host->NextPlace());
    if (form.kind_ == Form::Kind::Splash)
        window->move(QGuiApplication::primaryScreen()->geometry().center() - window->rect().center());
}

void FormNative::Finish() {
    form.life_ = Form::Life::Gone;
    form.visible_ = false;
    if (host) {
        host->TakeOut(form);
    } else if (QWidget* window = WidgetOf(form)) {
        window->hide();
    }
    if (form.kind_ == Form::Kind::Main) QCoreApplication::exit();
    // The handler may own the form: nothing here may touch it afterwards.
    if (const std::function<void()> after = form.AfterUnload) after();
}

void FormNative::Resized() {
    if (placing || !WasShown() || sizeKept || !WidgetOf(form)) return;
    if (form.WindowState() == kMinimised) return;
    TakeActualSize();
    if (WantedClient() == heard) return;
    heard = WantedClient();
    RunEvent(EventKind::Ordinary, [this] { form.Form_Resize(); });
}

void FormNative::Moved() {
    if (placing || !WasShown()) return;
    const QPoint place = WidgetOf(form)->pos();
    if (PixelPlace(form).topLeft() == place) return;
    form.left_ = place.x() * kTwipsPerPixel;
    form.top_ = place.y() * kTwipsPerPixel;
}

void FormNative::StateChanged() {
    if (!WasShown()) return;
    state = form.WindowState();
    if (!sizeKept || state != kNormal) return;
    // Later: the toolkit still puts the old size back after it told of the new state.
    QMetaObject::invokeMethod(
        WidgetOf(form), [this] { RunEvent(EventKind::Ordinary, [this] { PlaceKeptSize(); }); },
        Qt::QueuedConnection);
}

void FormNative::PlaceKeptSize() {
    if (!sizeKept || form.WindowState() != kNormal) return;
    sizeKept = false;
    Place();
}

void FormNative::CloseBox() {
    RunEvent(EventKind::Ordinary, [this] { form.Unload(); });
}

void FormNative::Activated() {
    if (IsChild() || !WasShown()) return;
    RunEvent(EventKind::Ordinary, [this] { form.Form_Activate(); });
}

} // namespace pintalux
