#include "surface/window/Form.h"

#include "base/RuntimeError.h"
#include "surface/window/Control_native.h"
#include "surface/window/Events_native.h"
#include "surface/window/Form_native.h"
#include "surface/window/MDIForm_native.h"

#include <QIcon>
#include <QWindow>

namespace pintalux {

Form::Form(std::string name, Kind kind)
    : Container(nullptr, std::move(name), kScaleTwips), kind_(kind),
      form_(std::make_unique<FormNative>(*this)) {
    visible_ = false;
    form_->MakeWindow();
}

Form::~Form() {
    loaded_ = false;
    delete native_->widget.data();
}

void Form::Caption(std::string value) {
    caption_ = std::move(value);
    if (QWidget* window = WidgetOf(*this)) window->setWindowTitle(ToQString(caption_));
    if (form_->mdi) form_->mdi->RefreshWindowList();
}

int Form::WindowState() const {
    const QWidget* window = WidgetOf(*this);
    if (!window || !form_->shown) return form_->state;
    return window->isMinimized() ? kMinimised : window->isMaximized() ? kMaximised : kNormal;
}

void Form::WindowState(int value) {
    if (value < kNormal || value > kMaximised) throw RuntimeError(kInvalidPropertyValue);
    form_->state = value;
    if (!form_->shown || !visible_ || !WidgetOf(*this)) return;
    form_->ShowWindow();
    form_->PlaceKeptSize();
}

void Form::Show() {
    MDINative* mdi = form_->mdi;
    if (!WidgetOf(*this) || (form_->IsChild() && !mdi)) return;
    visible_ = true;
    if (form_->shown) {
        form_->ShowWindow();
    } else {
        form_->FirstShowing();
    }
    if (mdi) mdi->Activate(*this);
}

void Form::Hide() {
    visible_ = false;
    if (QWidget* window = WidgetOf(*this)) window->hide();
    if (form_->modal) form_->modal->quit();
}

void Form::VisibleChanged() {
    if (visible_) {
        Show();
    } else {
        Hide();
    }
}

bool Form::Unload() {
    if (!loaded_) return true;
    if (form_->unloading) return false; // A handler of the running unload asks again.
    form_->unloading = true;
    bool Cancel = false;
    try {
        Form_QueryUnload(Cancel);
        if (!Cancel) Form_Unload();
    } catch (...) {
        form_->unloading = false;
        throw;
    }
    form_->unloading = false;
    if (Cancel) return false;
    form_->Finish();
    return true;
}

void Form::RunLoad() {
    if (loaded_) return;
    loaded_ = true;
    try {
        Form_Load();
    } catch (...) {
        loaded_ = false;
        throw;
    }
}

void Form::IconResource(const std::string& resource) {
    if (QWidget* window = WidgetOf(*this)) window->setWindowIcon(QIcon(ToQString(resource)));
}

int Form::PixelWidth() const {
    return form_->WantedClient().width();
}

int Form::PixelHeight() const {
    return form_->WantedClient().height();
}

void Form::Placed() {
    form_->Place();
}

void Bury(std::unique_ptr<Form> form) {
    WhenIdle([kept = std::shared_ptr<Form>(std::move(form))] {});
}

void KeepOnTop(Form& form, bool topmost) {
    QWidget* window = WidgetOf(form);
    if (!window) return;
    window->winId(); // Flags of a window that exists change without hiding it.
    window->windowHandle()->setFlag(Qt::WindowStaysOnTopHint, topmost);
    window->overrideWindowFlags(window->windowFlags().setFlag(Qt::WindowStaysOnTopHint, topmost));
}

} // namespace pintalux
