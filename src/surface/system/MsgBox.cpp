#include "surface/system/MsgBox.h"

#include "surface/system/App.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <utility>
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

QPushButton* AddButton(QMessageBox& box, BoxAnswer answer) {
    switch (answer) {
    case BoxAnswer::Yes:
        return box.addButton("Sim", QMessageBox::YesRole);
    case BoxAnswer::No:
        return box.addButton("Não", QMessageBox::NoRole);
    case BoxAnswer::Cancel:
        return box.addButton("Cancelar", QMessageBox::RejectRole);
    case BoxAnswer::Ok:
        break;
    }
    return box.addButton("OK", QMessageBox::AcceptRole);
}

} // namespace

BoxAnswer MsgBox(const std::string& text, BoxButtons buttons, BoxIcon icon, const std::string& title) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(QString::fromStdString(title.empty() ? App.Title() : title));
    box.setTextFormat(Qt::PlainText); // captions and paths come from outside
    box.setText(QString::fromStdString(text));
    box.setIcon(ToolkitIcon(icon));
    std::vector<std::pair<QPushButton*, BoxAnswer>> choices;
    for (const BoxAnswer answer : AnswersOf(buttons)) {
        QPushButton* button = AddButton(box, answer);
        if (answer == BoxAnswer::Yes) button->setShortcut(Qt::Key_S);
        if (answer == BoxAnswer::No) button->setShortcut(Qt::Key_N);
        choices.emplace_back(button, answer);
    }
    box.setDefaultButton(choices.front().first);
    box.setEscapeButton(choices.back().first);
    box.exec();
    for (const auto& [button, answer] : choices)
        if (box.clickedButton() == button) return answer;
    return choices.back().second;
}

} // namespace pintalux
