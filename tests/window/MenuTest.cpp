#include "surface/window/Menu.h"
#include "window/WindowTest.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

namespace pintalux {
namespace {

QMenu* MenuNamed(const char* name) {
    return static_cast<QMenu*>(FindWidget(name));
}

QStringList Texts(const QMenu& menu) {
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts << (action->isSeparator() ? "-" : action->text());
    return texts;
}

TEST(Menu, ItemsStandInOrder) {
    MenuItem menu("mnuFile", "&Ficheiro");
    MenuItem first("a", "A"), second("b", "B"), between("c", "C");
    menu.Add(first);
    menu.AddSeparator();
    menu.Add(second);
    menu.InsertAfter(first, between);
    EXPECT_EQ(Texts(*MenuNamed("mnuFile")), (QStringList{"A", "C", "-", "B"}));
    menu.Remove(first);
    EXPECT_EQ(Texts(*MenuNamed("mnuFile")), (QStringList{"C", "-", "B"}));
    MenuItem last("d", "D");
    menu.InsertAfter(second, last);
    EXPECT_EQ(Texts(*MenuNamed("mnuFile")), (QStringList{"C", "-", "B", "D"}));
}

TEST(Menu, OfAVeryLongCaptionBothEndsAreShown) {
    MenuItem menu("mnuFile", "&Ficheiro");
    MenuItem item("a", "A");
    menu.Add(item);
    const auto shown = [] { return Texts(*MenuNamed("mnuFile"))[0].toStdString(); };
    item.Caption(std::string(80, 'x'));
    EXPECT_EQ(shown(), std::string(80, 'x'));
    item.Caption(std::string(100, 'x') + std::string(100, 'y'));
    EXPECT_EQ(item.Caption().size(), 200U);
    EXPECT_EQ(shown(), std::string(40, 'x') + "\u2026" + std::string(40, 'y'));
    item.Caption(std::string(39, 'x') + "&&" + std::string(98, 'z') + "&&" + std::string(39, 'y'));
    EXPECT_EQ(shown(), std::string(39, 'x') + "\u2026" + std::string(39, 'y'));
    item.Caption(std::string(300, '&'));
    EXPECT_EQ(shown(), "\u2026");
}

TEST(Menu, ClickRunsAsAnEvent) {
    UntrappedErrors errors;
    MenuItem menu("mnu", "M");
    MenuItem item("item", "Item");
    menu.Add(item);
    item.Click = [] { throw RuntimeError(kObjectNotSet); };
    MenuNamed("mnu")->actions()[0]->trigger();
    EXPECT_EQ(errors.numbers, std::vector<int>{kObjectNotSet});
}

TEST(Menu, ThatOpensRunsItsOwnClickFirst) {
    UntrappedErrors errors;
    MenuItem menu("mnu", "M");
    MenuItem item("item", "Item");
    menu.Add(item);
    menu.Click = [&] { item.Caption("Anular recorte"); };
    QMenu& opened = *MenuNamed("mnu");
    opened.popup({0, 0});
    EXPECT_EQ(Texts(opened), QStringList{"Anular recorte"});
    opened.close();
    menu.Click = [] { throw RuntimeError(kObjectNotSet); };
    opened.popup({0, 0});
    opened.close();
    EXPECT_EQ(errors.numbers, std::vector<int>{kObjectNotSet});
}

TEST(Menu, OnlyTheProgramTicks) {
    MenuItem menu("mnu", "M");
    MenuItem item("item", "Item");
    menu.Add(item);
    QAction* action = MenuNamed("mnu")->actions()[0];
    item.Checked(true);
    EXPECT_TRUE(action->isChecked());
    action->trigger();
    EXPECT_TRUE(action->isChecked());
    item.Click = [&] { item.Checked(!item.Checked()); };
    action->trigger();
    EXPECT_FALSE(action->isChecked());
    EXPECT_FALSE(item.Checked());
    action->trigger();
    EXPECT_TRUE(action->isChecked());
}

TEST(Menu, DisabledItemHasNoEffect) {
    MenuItem menu("mnu", "M");
    MenuItem item("item", "Item", "Ctrl+D");
    menu.Add(item);
    QAction* action = MenuNamed("mnu")->actions()[0];
    EXPECT_EQ(action->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_D));
    int clicks = 0;
    item.Click = [&] { ++clicks; };
    item.Enabled(false);
    EXPECT_FALSE(action->isEnabled());
    action->trigger();
    EXPECT_EQ(clicks, 0);
    item.Enabled(true);
    action->trigger();
    EXPECT_EQ(clicks, 1);
}

TEST(Menu, HiddenItemAndNamedSeparator) {
    MenuItem menu("mnu", "M");
    MenuItem item("item", "Item");
    MenuSeparator bar("mnuBar");
    menu.Add(item);
    menu.Add(bar);
    bar.Visible(false);
    item.Visible(false);
    const QList<QAction*> actions = MenuNamed("mnu")->actions();
    EXPECT_FALSE(actions[0]->isVisible());
    EXPECT_TRUE(actions[1]->isSeparator());
    EXPECT_FALSE(actions[1]->isVisible());
}

TEST(Menu, StandsInTheMenuBar) {
    MDIForm main("main");
    MenuItem menu("mnuFile", "&Ficheiro");
    MenuItem sub("mnuSub", "Sub");
    MenuItem item("item", "Item");
    sub.Add(item);
    menu.Add(sub);
    main.AddMenu(menu);
    const auto* bar = FindWidget("main")->findChild<QMenuBar*>();
    ASSERT_EQ(bar->actions().size(), 1);
    EXPECT_EQ(bar->actions()[0]->text(), QString("&Ficheiro"));
    EXPECT_EQ(bar->actions()[0]->menu()->actions()[0]->menu()->actions()[0]->text(), QString("Item"));
}

} // namespace
} // namespace pintalux
