#include "surface/window/Form.h"

#include "base/RuntimeError.h"
#include "surface/window/Control_native.h"
#include "surface/window/Events_native.h"
#include "surface/window/Form_native.h"

#include <utility>

#include <QIcon>
#include <QWindow>

namespace pintalux {

namespace {

/// The caption, in a document window with the place of the mark of a change behind it.
QString TitleOf(Form& form) {
    QString title = ToQString(form.Caption());
    if (!FormNative::Of(form).IsChild()) return title;
    return title.replace(QLatin1String("[*]"), QLatin1String("[*][*]")) + QLatin1String("[*]");
}

} // namespace

Form::Form(std::string name, Kind kind)
    : Container(nullptr, std::move(name), kScaleTwips), kind_(kind),
      form_(std::make_unique<FormNative>(*this)) {
    visible_ = false;
    form_->MakeWindow();
}

Form::~Form() {
    life_ = Life::Gone;
    delete native_->widget.data();
}

void Form::Caption(std::string value) {
    caption_ = std::move(value);
    if (QWidget* window = WidgetOf(*this)) window->setWindowTitle(TitleOf(*this));
    if (form_->host) form_->host->Retitled();
}

void Form::Modified(bool value) {
    if (value == modified_) return;
    modified_ = value;
    if (QWidget* window = WidgetOf(*this)) window->setWindowModified(value);
}

int Form::WindowState() const {
    const QWidget* window = WidgetOf(*this);
    if (!window || !form_->WasShown()) return form_->state;
    return window->isMinimized() ? kMinimised : window->isMaximized() ? kMaximised : kNormal;
}

void Form::WindowState(int value) {
    if (value < kNormal || value > kMaximised) throw RuntimeError(kInvalidPropertyValue);
    form_->state = value;
    if (!form_->WasShown() || !visible_ || !WidgetOf(*this)) return;
    form_->ShowWindow();
    form_->PlaceKeptSize();
}

void Form::Show() {
    RunLoad();
    FormHost* host = form_->host;
    if (!Loaded() || !WidgetOf(*this) || (form_->IsChild() && !host)) return;
    visible_ = true;
    if (form_->WasShown()) {
        form_->ShowWindow();
    } else {
        form_->FirstShowing();
    }
    if (host) host->Activate(*this);
}

void Form::Hide() {
    visible_ = false;
    if (QWidget* window = WidgetOf(*this)) window->hide();
}

void Form::VisibleChanged() {
    if (visible_) {
        Show();
    } else {
        Hide();
    }
}

bool Form::Unload() {
    if (!Loaded()) return true;
    if (life_ == Life::Unloading) return false; // A handler of the running unload asks again.
    lifeIfRefused_ = std::exchange(life_, Life::Unloading);
    bool Cancel = false;
    try {
        Form_QueryUnload(Cancel);
        if (!Cancel) Form_Unload();
    } catch (...) {
        life_ = lifeIfRefused_;
        throw;
    }
    if (Cancel) {
        life_ = lifeIfRefused_;
        return false;
    }
    form_->Finish();
    return true;
}

void Form::RunLoad() {
    if (life_ != Life::Made) return;
    life_ = Life::Loaded;
    try {
        Form_Load();
    } catch (...) {
        life_ = Life::Made;
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
