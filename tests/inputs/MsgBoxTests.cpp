#include "surface/system/MsgBox.h"

#include "inputs/ByHand.h"
#include "support/DialogScript.h"

#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>

namespace pintalux {

namespace {

BoxAnswer Pressing(const char* text, BoxButtons buttons) {
    const DialogScript script({PressesButton(text)});
    return MsgBox("Pretende salvar?", buttons);
}

BoxAnswer PressingKey(int key, BoxButtons buttons) {
    const DialogScript script({[=](QWidget& box) { Key(box, key); }});
    return MsgBox("Pretende salvar?", buttons);
}

TEST(MsgBox, ButtonsGiveTheirAnswers) {
    EXPECT_EQ(Pressing("OK", BoxButtons::Ok), BoxAnswer::Ok);
    EXPECT_EQ(Pressing("Sim", BoxButtons::YesNo), BoxAnswer::Yes);
    EXPECT_EQ(Pressing("Não", BoxButtons::YesNo), BoxAnswer::No);
    EXPECT_EQ(Pressing("Sim", BoxButtons::YesNoCancel), BoxAnswer::Yes);
    EXPECT_EQ(Pressing("Não", BoxButtons::YesNoCancel), BoxAnswer::No);
    EXPECT_EQ(Pressing("Cancelar", BoxButtons::YesNoCancel), BoxAnswer::Cancel);
}

TEST(MsgBox, EscapeIsCancelOrNoOrOk) {
    EXPECT_EQ(PressingKey(Qt::Key_Escape, BoxButtons::YesNoCancel), BoxAnswer::Cancel);
    EXPECT_EQ(PressingKey(Qt::Key_Escape, BoxButtons::YesNo), BoxAnswer::No);
    EXPECT_EQ(PressingKey(Qt::Key_Escape, BoxButtons::Ok), BoxAnswer::Ok);
}

TEST(MsgBox, EnterIsTheFirstButton) {
    EXPECT_EQ(PressingKey(Qt::Key_Return, BoxButtons::YesNoCancel), BoxAnswer::Yes);
}

TEST(MsgBox, WhereSomethingWouldBeLostEnterIsTheLastButton) {
    const DialogScript script({[](QWidget& box) { Key(box, Qt::Key_Return); }});
    EXPECT_EQ(MsgBox("Limpar?", BoxButtons::YesNo, BoxIcon::Question, "", BoxDefault::Last), BoxAnswer::No);
}

TEST(MsgBox, FirstLettersAreUnderlinedAndPressAloneToo) {
    const auto pressing = [](Qt::Key key) {
        const DialogScript script({In<QMessageBox>([key](QMessageBox& box) {
            for (const QAbstractButton* button : box.buttons())
                EXPECT_EQ(button->shortcut().toString(),
                          "Alt+" + QString(button->text()).remove('&').left(1));
            for (QShortcut* alone : box.findChildren<QShortcut*>())
                if (alone->key() == QKeySequence(key)) return alone->activated();
            box.close();
        })});
        return MsgBox("Pretende salvar?", BoxButtons::YesNoCancel);
    };
    EXPECT_EQ(pressing(Qt::Key_S), BoxAnswer::Yes);
    EXPECT_EQ(pressing(Qt::Key_N), BoxAnswer::No);
}

TEST(MsgBox, ShowsItsTextPlainUnderItsTitle) {
    Qt::TextFormat format = Qt::RichText;
    const DialogScript script({In<QMessageBox>([&](QMessageBox& box) {
        format = box.textFormat();
        box.close();
    })});
    MsgBox("<b>foto</b>.bmp", BoxButtons::Ok, BoxIcon::Critical, kMessageTitle);
    EXPECT_EQ(format, Qt::PlainText);
    EXPECT_EQ(script.Dialog(0), (DialogScript::Seen{"critical", kMessageTitle, "<b>foto</b>.bmp", "OK"}));
}

std::size_t Asking(const std::vector<std::string>& captions, const std::function<void(QMessageBox&)>& act) {
    const DialogScript script({In<QMessageBox>(act)});
    return MsgBox("Erro", captions, BoxIcon::Critical);
}

TEST(MsgBox, OwnCaptionsStandFromLeftToRightAndGiveTheirPlaces) {
    const std::vector<std::string> captions = {"Terminar", "Continuar"};
    std::vector<int> places;
    const auto press = [&](const char* text) {
        return [&places, text](QMessageBox& box) {
            for (const QAbstractButton* button : box.buttons())
                places.push_back(button->x());
            PressButton(box, text);
        };
    };
    EXPECT_EQ(Asking(captions, press("Terminar")), 0U);
    EXPECT_EQ(Asking(captions, press("Continuar")), 1U);
    ASSERT_EQ(places.size(), 4U);
    EXPECT_LT(places[0], places[1]);
}

TEST(MsgBox, TheLastOwnCaptionIsTheDefaultAndTheWayOut) {
    const auto key = [](int code) { return [code](QMessageBox& box) { Key(box, code); }; };
    EXPECT_EQ(Asking({"Terminar", "Continuar"}, key(Qt::Key_Return)), 1U);
    EXPECT_EQ(Asking({"Terminar", "Continuar"}, key(Qt::Key_Escape)), 1U);
    EXPECT_EQ(Asking({"Terminar"}, key(Qt::Key_Escape)), 0U);
}

TEST(MsgBox, EmptyTitleIsThePrograms) {
    const DialogScript script({ClosesDialog()});
    MsgBox("Olá");
    EXPECT_EQ(script.Dialog(0).title, "Pintalux64");
}

} // namespace

} // namespace pintalux
