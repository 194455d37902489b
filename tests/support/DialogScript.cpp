#include "support/DialogScript.h"

#include "support/Hand.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <ostream>

namespace pintalux {

struct DialogScript::State {
    std::vector<Step> steps;
    std::vector<Seen> seen;
    std::vector<QPointer<QWidget>> handled;
};

namespace {

constexpr int kLookEvery = 3; // milliseconds

std::string LabelsOf(const QWidget& dialog) {
    QStringList texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        texts += label->text();
    return texts.join("\n").toStdString();
}

std::string ButtonsOf(const QWidget& dialog) {
    QList<QAbstractButton*> buttons = dialog.findChildren<QAbstractButton*>();
    buttons.removeIf([](const QAbstractButton* button) { return !button->isVisible(); });
    std::sort(buttons.begin(), buttons.end(), [&](const QAbstractButton* a, const QAbstractButton* b) {
        return a->mapTo(&dialog, QPoint()).x() < b->mapTo(&dialog, QPoint()).x();
    });
    QStringList captions;
    for (const QAbstractButton* button : buttons)
        captions += button->text().remove('&');
    return captions.join('|').toStdString();
}

const char* IconOf(const QMessageBox& box) {
    switch (box.icon()) {
    case QMessageBox::Critical:
        return "critical";
    case QMessageBox::Question:
        return "question";
    case QMessageBox::Warning:
        return "exclamation";
    case QMessageBox::Information:
        return "information";
    default:
        return "none";
    }
}

DialogScript::Seen Look(const QWidget& dialog) {
    const auto* box = dynamic_cast<const QMessageBox*>(&dialog);
    return {box ? IconOf(*box) : "", dialog.windowTitle().toStdString(),
            box ? box->text().toStdString() : LabelsOf(dialog), ButtonsOf(dialog)};
}

bool Holds(const std::vector<QPointer<QWidget>>& handled, const QWidget* dialog) {
    for (const auto& one : handled) {
        if (one == dialog) return true;
    }
    return false;
}

template <class S>
void Follow(const std::weak_ptr<S>& weak) {
    const std::shared_ptr<S> state = weak.lock();
    if (!state) return;
    // A single shot, so that dialogs shown within a step are seen too.
    QTimer::singleShot(kLookEvery, qApp, [weak] { Follow(weak); });
    QWidget* dialog = QApplication::activeModalWidget();
    if (dialog == nullptr || !dialog->isVisible() || Holds(state->handled, dialog)) return;
    state->handled.emplace_back(dialog);
    state->seen.push_back(Look(*dialog));
    if (state->seen.size() <= state->steps.size()) {
        state->steps[state->seen.size() - 1](*dialog);
    } else {
        ADD_FAILURE() << "unexpected dialog: " << testing::PrintToString(state->seen.back());
        dialog->close();
    }
}

} // namespace

DialogScript::DialogScript(std::vector<Step> steps) : state_(std::make_shared<DialogScript::State>()) {
    state_->steps = std::move(steps);
    const std::weak_ptr<DialogScript::State> weak = state_;
    QTimer::singleShot(0, qApp, [weak] { Follow(weak); });
}

DialogScript::~DialogScript() {
    EXPECT_GE(state_->seen.size(), state_->steps.size()) << "a dialog that was expected did not show";
}

std::size_t DialogScript::Count() const {
    return state_->seen.size();
}

DialogScript::Seen DialogScript::Dialog(std::size_t n) const {
    return n < state_->seen.size() ? state_->seen[n] : Seen{};
}

void PrintTo(const DialogScript::Seen& seen, std::ostream* out) {
    *out << "{" << seen.icon << "} \"" << seen.title << "\": \"" << seen.text << "\" [" << seen.buttons
         << "]";
}

// A watch whose dialog is the same at a hundred looks in a row.
struct DialogWatch::Native {
    static constexpr int kLookEvery = 100; // milliseconds
    static constexpr int kPatience = 100;  // looks

    QTimer timer;
    QPointer<QWidget> dialog;
    int looks = 0;

    void Look();
};

void DialogWatch::Native::Look() {
    QWidget* const now = QApplication::activeModalWidget();
    looks = now != nullptr && now == dialog ? looks + 1 : 0;
    dialog = now;
    if (looks < kPatience) return;
    const std::string text = testing::PrintToString(pintalux::Look(*now));
    if (looks > kPatience) {
        std::fprintf(stderr, "a dialog cannot be closed: %s\n", text.c_str());
        std::abort();
    }
    ADD_FAILURE() << "nobody answers " << text;
    now->close();
}

DialogWatch::DialogWatch() : native_(std::make_unique<Native>()) {
    QObject::connect(&native_->timer, &QTimer::timeout, &native_->timer,
                     [native = native_.get()] { native->Look(); });
    native_->timer.start(Native::kLookEvery);
}

DialogWatch::~DialogWatch() = default;

void FailOn(QWidget& dialog) {
    ADD_FAILURE() << "another kind of dialog: " << testing::PrintToString(Look(dialog));
    dialog.close();
}

void PressButton(QWidget& dialog, const std::string& text) {
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->text().remove('&').toStdString() == text) {
            button->click();
            return;
        }
    }
    ADD_FAILURE() << "no button " << text << " in " << dialog.windowTitle().toStdString();
    dialog.close();
}

DialogScript::Step PressesButton(const std::string& text) {
    return [text](QWidget& dialog) { PressButton(dialog, text); };
}

DialogScript::Step ClosesDialog() {
    return [](QWidget& dialog) { dialog.close(); };
}

DialogScript::Step ChoosesFile(const std::string& path, int filterIndex) {
    return In<QFileDialog>([path, filterIndex](QFileDialog& dialog) {
        if (filterIndex > 0) {
            auto* filters = dialog.findChild<QComboBox*>("fileTypeCombo");
            filters->setCurrentIndex(filterIndex - 1);
            emit filters->textActivated(filters->currentText());
            emit filters->activated(filterIndex - 1);
        }
        // As when the name is typed, the mark goes from the file that was proposed.
        dialog.findChild<QAbstractItemView*>("listView")->clearSelection();
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(path));
        PressButton(dialog, dialog.acceptMode() == QFileDialog::AcceptOpen ? "Abrir" : "Salvar");
    });
}

DialogScript::Step PressesEscape() {
    return [](QWidget& dialog) { Key(dialog, Qt::Key_Escape); };
}

} // namespace pintalux
