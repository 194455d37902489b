#include "surface/window/MDIForm.h"

#include "base/RuntimeError.h"
#include "surface/raster/Colour.h"
#include "surface/window/Control_native.h"
#include "surface/window/Events.h"
#include "surface/window/FileDrop_native.h"
#include "surface/window/Form_native.h"
#include "surface/window/MDIForm_native.h"
#include "surface/window/Menu_native.h"
#include "surface/window/Painting_native.h"

#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>

#include <algorithm>

namespace pintalux {

namespace {

class PanelFrame : public QWidget {
  public:
    PanelFrame(MDINative& native, QWidget* parent) : QWidget(parent), native_(native) {}

  protected:
    void resizeEvent(QResizeEvent*) override { LayOut(); }
    void showEvent(QShowEvent*) override { LayOut(); }

  private:
    void LayOut() {
        RunEvent(EventKind::Ordinary, [this] { native_.LayOut(); });
    }
    MDINative& native_;
};

/// The toolkit brings the window menu's texts in English only.
void TranslateSystemMenu(QMdiSubWindow& window) {
    static const char* const kTexts[] = {"&Restaurar", "&Mover", "&Tamanho", "Mi&nimizar", "Ma&ximizar"};
    QMenu* menu = window.systemMenu();
    if (!menu) return;
    int place = 0;
    for (QAction* action : menu->actions()) {
        if (action->isSeparator()) continue;
        if (place < 5) {
            action->setText(QString::fromUtf8(kTexts[place]));
        } else if (place == 5) {
            action->setVisible(false); // A document window always above the others has no use here.
        } else {
            action->setText(QStringLiteral("&Fechar"));
            action->setShortcut(Qt::CTRL |
                                Qt::Key_F4); // Of the two that the toolkit gives a menu has the other.
        }
        ++place;
    }
}

} // namespace

MDIForm::MDIForm(std::string name)
    : Form(std::move(name), Kind::Main), mdi_(std::make_unique<MDINative>(*this)) {
    mdi_->MakeWindow();
    mdi_->ConnectKeys();
    mdi_->ConnectFocus();
}

MDIForm::~MDIForm() {
    mdi_->closing = true;
    mdi_->active = nullptr;
    for (const std::unique_ptr<Form>& child : children_)
        FormNative::Of(*child).LoseHost();
    children_.clear();
    delete native_->widget.data();
}

void MDINative::MakeWindow() {
    QMainWindow* window = Window();
    frame = new PanelFrame(*this, window);
    window->setCentralWidget(frame);
    form.Native().client = frame;
    TakeFileDrops(*window, [this](const std::vector<std::string>& paths) {
        if (form.FilesDropped) form.FilesDropped(paths);
    });
    area = new QMdiArea(frame);
    area->setObjectName(QStringLiteral("workspace"));
    area->setBackground(ToQColor(kWorkspaceColour));
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    QObject::connect(area, &QMdiArea::subWindowActivated, area,
                     [this](const QMdiSubWindow* activated) { ActivatedByToolkit(activated); });
}

QMainWindow* MDINative::Window() const {
    return static_cast<QMainWindow*>(WidgetOf(form));
}

Form* MDIForm::ActiveForm() const {
    return mdi_->active;
}

Form& MDIForm::Adopt(std::unique_ptr<Form> child) {
    Form& form = *child;
    FormNative& native = FormNative::Of(form);
    native.host = mdi_.get();
    native.focusStep = [this](bool next) { return mdi_->StepFocus(next); };
    if (mdi_->area) {
        const FromUs ours(mdi_->switching);
        mdi_->area->addSubWindow(native.SubWindow());
        TranslateSystemMenu(*native.SubWindow());
    }
    children_.push_back(std::move(child));
    form.AfterUnload = [this, &form] {
        const auto place = std::find_if(children_.begin(), children_.end(),
                                        [&](const auto& entry) { return entry.get() == &form; });
        if (place == children_.end()) return;
        std::unique_ptr<Form> gone = std::move(*place);
        children_.erase(place);
        mdi_->RefreshWindowList();
        Bury(std::move(gone));
    };
    try {
        form.RunLoad();
    } catch (...) {
        native.Finish();
        throw;
    }
    return form;
}

void MDIForm::Form_QueryUnload(bool& Cancel) {
    std::vector<Form*> asked;
    for (const std::unique_ptr<Form>& child : children_)
        asked.push_back(child.get());
    for (Form* child : asked) {
        child->Form_QueryUnload(Cancel);
        if (Cancel) return;
    }
}

void MDIForm::Form_Unload() {
    mdi_->closing = true;
    while (!children_.empty()) {
        Form& child = *children_.front();
        child.Form_Unload();
        FormNative::Of(child).Finish();
    }
    mdi_->active = nullptr;
    MDIForm_Unload();
}

void MDIForm::LeastInside(int width, int height) {
    if (QMainWindow* window = mdi_->Window()) window->setMinimumSize(width, height);
}

void MDIForm::AddMenu(MenuItem& menu) {
    QMainWindow* window = mdi_->Window();
    if (window && menu.Native().action) window->menuBar()->addAction(menu.Native().action);
}

void MDIForm::WindowListMenu(MenuItem& menu) {
    mdi_->windowList = &menu;
    mdi_->RefreshWindowList();
}

void MDINative::Activate(Form& child) {
    if (area) {
        const FromUs ours(switching);
        QMdiSubWindow* window = FormNative::Of(child).SubWindow();
        area->setActiveSubWindow(window);
        // Behind a dialog the main window only notes who has the focus: without this the document before
        // would have it again, and the front place, as soon as the dialog has gone.
        if (window && !area->isActiveWindow()) window->setFocus(Qt::OtherFocusReason);
    }
    if (active == &child || closing) return;
    active = &child;
    RefreshWindowList();
    if (child.Loaded()) child.Form_Activate();
}

void MDINative::WhileShowing(const std::function<void()>& show) {
    const FromUs ours(switching);
    show();
}

void MDINative::ActivatedByToolkit(const QWidget* window) {
    // None: the main window lost the focus; the active document stays the active one.
    if (!window || switching || closing) return;
    for (const std::unique_ptr<Form>& child : form.children_) {
        if (WidgetOf(*child) != window || !child->Loaded() || child.get() == active) continue;
        active = child.get();
        RefreshWindowList();
        return RunEvent(EventKind::Ordinary, [this] { active->Form_Activate(); });
    }
}

Form* MDINative::LastMinimised(const Form& gone) const {
    Form* last = nullptr;
    for (const std::unique_ptr<Form>& child : form.children_) {
        if (child.get() != &gone && child->visible_) last = child.get();
    }
    return last;
}

void MDINative::TakeOut(Form& child) {
    QMdiSubWindow* window = FormNative::Of(child).SubWindow();
    const bool maximised = window && window->isMaximized();
    if (window && area) {
        const FromUs ours(switching);
        if (maximised) window->showNormal(); // Takes its buttons out of the menu bar.
        window->hide();
        area->removeSubWindow(window);
    }
    FormNative::Of(child).LoseHost();
    if (active != &child) return;
    active = nullptr;
    if (closing) return;
    const std::vector<Form*> left = Arrangeable();
    if (!left.empty() && maximised) left.back()->WindowState(kMaximised);
    Form* next = left.empty() ? LastMinimised(child) : left.back();
    if (next == nullptr) return;
    RunEvent(EventKind::Ordinary, [&] { Activate(*next); });
}

void MDINative::ConnectKeys() {
    const auto connect = [this](QKeySequence::StandardKey key, void (QMdiArea::*step)()) {
        auto* shortcut = new QShortcut(key, Window());
        QObject::connect(shortcut, &QShortcut::activated, area, step);
    };
    connect(QKeySequence::NextChild, &QMdiArea::activateNextSubWindow);
    connect(QKeySequence::PreviousChild, &QMdiArea::activatePreviousSubWindow);
}

QPoint MDINative::NextPlace() {
    constexpr int kStep = 24;
    constexpr int kSteps = 10;
    const int step = placed++ % kSteps;
    return {step * kStep, step * kStep};
}

void MDINative::RefreshWindowList() {
    if (!windowList || closing) return;
    for (const QPointer<QAction>& entry : listEntries)
        delete entry.data();
    listEntries.clear();
    QMenu* menu = windowList->Native().Menu();
    if (!menu) return;
    int number = 0;
    for (const std::unique_ptr<Form>& owned : form.children_) {
        Form* child = owned.get();
        if (!child->visible_) continue;
        if (++number == 1) listEntries.emplace_back(menu->addSeparator());
        QString title = ToQString(child->Caption());
        title.replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction* entry = menu->addAction(
            (number < 10 ? QStringLiteral("&%1 %2") : QStringLiteral("%1 %2")).arg(number).arg(title));
        entry->setCheckable(true);
        entry->setChecked(child == active);
        QObject::connect(entry, &QAction::triggered, entry, [this, child] {
            // Queued: showing the window builds this list anew, and with it this entry.
            QMetaObject::invokeMethod(
                area, [child] { RunEvent(EventKind::Ordinary, [child] { child->Show(); }); },
                Qt::QueuedConnection);
        });
        listEntries.emplace_back(entry);
    }
}

} // namespace pintalux
