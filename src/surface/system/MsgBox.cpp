#include "surface/system/MsgBox.h"

#include "surface/system/App.h"
#include "surface/window/DialogOwner_native.h"

#include <algorithm>
#include <cctype>
#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <vector>

namespace pintalux {

namespace {

QMessageBox::Icon ToolkitIcon(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// Our own picture of the kind, which is sharp at every scale and on light and dark; null for none.
const char* PictureOf(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Critical:
        return ":/icons/box-critical.svg";
    case BoxIcon::Question:
        return ":/icons/box-question.svg";
    case BoxIcon::Exclamation:
        return ":/icons/box-exclamation.svg";
    case BoxIcon::Information:
        return ":/icons/box-information.svg";
    case BoxIcon::None:
        break;
    }
    return nullptr;
}

/// The buttons of a box, from left to right; the last is what closing the box means.
std::vector<BoxAnswer> AnswersOf(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::YesNo:
        return {BoxAnswer::Yes, BoxAnswer::No};
    case BoxButtons::YesNoCancel:
        return {BoxAnswer::Yes, BoxAnswer::No, BoxAnswer::Cancel};
    case BoxButtons::Ok:
        break;
    }
    return {BoxAnswer::Ok};
}

struct Choice {
    const char* caption;
    QMessageBox::ButtonRole role;
    int key; // 0: none but Enter and Escape
};

Choice ChoiceOf(BoxAnswer answer) {
    switch (answer) {
    case BoxAnswer::Yes:
        return {"Sim", QMessageBox::YesRole, Qt::Key_S};
    case BoxAnswer::No:
        return {"Não", QMessageBox::NoRole, Qt::Key_N};
    case BoxAnswer::Cancel:
        return {"Cancelar", QMessageBox::RejectRole, Qt::Key_C};
    case BoxAnswer::Ok:
        break;
    }
    return {"OK", QMessageBox::AcceptRole, 0};
}

/// A box over the active window with its buttons, from left to right; the last is what closing it means.
class Box {
  public:
    Box(const std::string& text, BoxIcon icon, const std::string& title) {
        box_.setWindowTitle(QString::fromStdString(title.empty() ? App.Title() : title));
        box_.setTextFormat(Qt::PlainText); // captions and paths come from outside
        box_.setText(QString::fromStdString(text));
        box_.setIcon(ToolkitIcon(icon));
        ShowPicture(PictureOf(icon));
    }

    void Add(const Choice& choice) {
        const QString mark = choice.key != 0 ? "&" : "";
        QPushButton* button = box_.addButton(mark + QString::fromUtf8(choice.caption), choice.role);
        buttons_.push_back(button);
        if (choice.key == 0) return;
        auto* alone = new QShortcut(QKeySequence(choice.key), &box_);
        QObject::connect(alone, &QShortcut::activated, button, [button] { button->click(); });
    }

    /// Shows the box; gives the place of the answer, from 0.
    std::size_t Ask(std::size_t defaultButton) {
        box_.setDefaultButton(buttons_[defaultButton]);
        box_.setEscapeButton(buttons_.back());
        PlaceOverOwner(box_);
        box_.exec();
        const auto pressed = std::find(buttons_.begin(), buttons_.end(), box_.clickedButton());
        return pressed == buttons_.end() ? buttons_.size() - 1
                                         : static_cast<std::size_t>(pressed - buttons_.begin());
    }

  private:
    /// In the toolkit's own place for it, so that the box still knows its kind; the text stands beside its
    /// middle.
    void ShowPicture(const char* resource) {
        auto* label = box_.findChild<QLabel*>("qt_msgboxex_icon_label");
        auto* text = box_.findChild<QLabel*>("qt_msgbox_label");
        if (resource == nullptr || label == nullptr || text == nullptr || !QFile::exists(resource)) return;
        constexpr int kSide = 48;
        label->setPixmap(QIcon(resource).pixmap(QSize(kSide, kSide), qApp->devicePixelRatio()));
        text->setMinimumHeight(std::max(kSide, text->minimumSizeHint().height()));
        text->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }

    QMessageBox box_;
    std::vector<QPushButton*> buttons_;
};

} // namespace

BoxAnswer MsgBox(const std::string& text, BoxButtons buttons, BoxIcon icon, const std::string& title,
                 BoxDefault defaultButton) {
    const std::vector<BoxAnswer> answers = AnswersOf(buttons);
    Box box(text, icon, title);
    for (const BoxAnswer answer : answers)
        box.Add(ChoiceOf(answer));
    return answers[box.Ask(defaultButton == BoxDefault::First ? 0 : answers.size() - 1)];
}

std::size_t MsgBox(const std::string& text, const std::vector<std::string>& captions, BoxIcon icon,
                   const std::string& title) {
    Box box(text, icon, title);
    // The same role for all: the toolkit sorts buttons by their roles.
    for (const std::string& caption : captions)
        box.Add(
            {caption.c_str(), QMessageBox::ActionRole, std::toupper(static_cast<unsigned char>(caption[0]))});
    return box.Ask(captions.size() - 1);
}

} // namespace pintalux
