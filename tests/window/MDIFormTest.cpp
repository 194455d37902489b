#include "surface/window/Surface.h"
#include "window/WindowTest.h"

#include <algorithm>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QShortcut>

namespace pintalux {
namespace {

class Main : public MDIForm {
  public:
    Main() : MDIForm("main") {
        Width(900 * 15);
        Height(700 * 15);
    }
    int unloads = 0;

  protected:
    void MDIForm_Unload() override { ++unloads; }
};

class MDITest : public testing::Test {
  protected:
    void SetUp() override {
        main.RunLoad();
        main.Show();
        LetEventsRun();
    }
    PlainForm& AddChild(const std::string& name) {
        auto child = std::make_unique<PlainForm>(name, Form::Kind::Child);
        child->onLoad = [form = child.get()] { form->Move(0, 0, 4620, 4980); };
        child->Caption("Caption of " + name);
        auto& form = static_cast<PlainForm&>(main.Adopt(std::move(child)));
        return form;
    }
    PlainForm& ShowChild(const std::string& name) {
        PlainForm& form = AddChild(name);
        form.Show();
        return form;
    }
    static QWidget* ClientOf(const std::string& name) {
        return static_cast<QMdiSubWindow*>(FindWidget(name))->widget();
    }
    Main main;
};

TEST_F(MDITest, AChangedDocumentIsMarkedAndKeepsItsCaption) {
    PlainForm& child = ShowChild("one");
    child.Caption("C:\\fotos [*].bmp");
    EXPECT_FALSE(FindWidget("one")->isWindowModified());
    child.Modified(true);
    EXPECT_TRUE(FindWidget("one")->isWindowModified());
    EXPECT_EQ(child.Caption(), "C:\\fotos [*].bmp");
    // The toolkit's place for the mark stands behind a caption whose own signs are kept apart from it.
    EXPECT_EQ(FindWidget("one")->windowTitle(), "C:\\fotos [*][*].bmp[*]");
    child.Modified(false);
    EXPECT_FALSE(FindWidget("one")->isWindowModified());
}

/// A child that closes itself, as by a command of its own.
class ChildThatLeaves : public PlainForm {
  public:
    explicit ChildThatLeaves(bool& gone) : PlainForm("leaving", Kind::Child), gone_(gone) {}
    ~ChildThatLeaves() override { gone_ = true; }
    ChildThatLeaves(const ChildThatLeaves&) = delete;
    ChildThatLeaves& operator=(const ChildThatLeaves&) = delete;

  private:
    bool& gone_;
};

TEST_F(MDITest, AChildThatUnloadsItselfIsThereUntilItsHandlerIsOver) {
    bool gone = false;
    auto& child = static_cast<PlainForm&>(main.Adopt(std::make_unique<ChildThatLeaves>(gone)));
    child.Show();
    bool goneWithin = true;
    RunEvent(EventKind::Ordinary, [&] {
        child.Unload();
        LetEventsRun();
        goneWithin = gone;
    });
    EXPECT_FALSE(goneWithin);
    LetEventsRun();
    EXPECT_TRUE(gone);
    EXPECT_TRUE(main.Children().empty());
}

TEST_F(MDITest, AHandCannotMakeTheWindowSmallerThanItsLeast) {
    main.LeastInside(420, 320);
    main.Width(100 * 15);
    main.Height(100 * 15);
    LetEventsRun();
    EXPECT_EQ(FindWidget("main")->size(), QSize(420, 320));
}

TEST_F(MDITest, ChildSizeIsClientPlusFixedFrame) {
    PlainForm& child = ShowChild("one");
    EXPECT_EQ(child.loads, 1);
    EXPECT_EQ(child.Width(), 4620);
    EXPECT_EQ(child.Height(), 4980);
    // (4620 - 120) / 15 and (4980 - 420) / 15
    EXPECT_EQ(ClientOf("one")->size(), QSize(300, 304));
    EXPECT_EQ(child.ScaleWidth(), 4500);
    child.Width(3120);
    child.Height(2670);
    EXPECT_EQ(ClientOf("one")->size(), QSize(200, 150));
    LetEventsRun();
    EXPECT_EQ(ClientOf("one")->size(), QSize(200, 150));
    EXPECT_EQ(child.Width(), 3120);
}

TEST_F(MDITest, SmallChildKeepsItsAssignedSize) {
    PlainForm& child = ShowChild("one");
    child.Width(8 * 15 + 120);
    child.Height(5 * 15 + 420);
    LetEventsRun();
    EXPECT_EQ(child.Width(), 240);
    EXPECT_EQ(child.Height(), 495);
    EXPECT_EQ(ClientOf("one")->size(), QSize(8, 5));
}

TEST_F(MDITest, SizeBeforeTheFirstShowingCounts) {
    PlainForm& child = AddChild("one");
    child.Width(6120);
    EXPECT_EQ(child.resizes, 0);
    child.Show();
    EXPECT_EQ(child.resizes, 1);
    EXPECT_EQ(ClientOf("one")->width(), 400);
}

TEST_F(MDITest, UsersResizingRunsFormResize) {
    PlainForm& child = ShowChild("one");
    const int before = child.resizes;
    QWidget* window = FindWidget("one");
    window->resize(window->width() + 10, window->height() + 20);
    LetEventsRun();
    EXPECT_EQ(child.Width(), 4620 + 150);
    EXPECT_EQ(child.Height(), 4980 + 300);
    EXPECT_EQ(child.resizes, before + 1);
}

TEST_F(MDITest, ShownChildIsActiveAtOnce) {
    EXPECT_EQ(main.ActiveForm(), nullptr);
    PlainForm& one = ShowChild("one");
    EXPECT_EQ(main.ActiveForm(), &one);
    EXPECT_EQ(one.activations, 1);
    PlainForm& two = ShowChild("two");
    EXPECT_EQ(main.ActiveForm(), &two);
    EXPECT_EQ(two.activations, 1);
    LetEventsRun();
    EXPECT_EQ(two.activations, 1);
    EXPECT_EQ(one.activations, 1);
}

TEST_F(MDITest, UsersActivationRunsFormActivate) {
    PlainForm& one = ShowChild("one");
    ShowChild("two");
    auto* area = static_cast<QMdiArea*>(FindWidget("workspace"));
    area->setActiveSubWindow(static_cast<QMdiSubWindow*>(FindWidget("one")));
    EXPECT_EQ(main.ActiveForm(), &one);
    EXPECT_EQ(one.activations, 2);
}

TEST_F(MDITest, ActiveFormStaysWhileADialogHasTheFocus) {
    PlainForm& one = ShowChild("one");
    PlainForm dialog("dialog", Form::Kind::Dialog);
    Form* seen = nullptr;
    QTimer::singleShot(1, qApp, [&] {
        seen = main.ActiveForm();
        dialog.Hide();
    });
    dialog.ShowModal();
    EXPECT_EQ(seen, &one);
    static_cast<QMdiArea*>(FindWidget("workspace"))->setActiveSubWindow(nullptr);
    EXPECT_EQ(main.ActiveForm(), &one);
}

TEST_F(MDITest, UnloadTakesTheChildOut) {
    PlainForm& one = ShowChild("one");
    PlainForm& two = ShowChild("two");
    EXPECT_TRUE(two.Unload());
    EXPECT_EQ(main.Children().size(), 1u);
    EXPECT_EQ(main.ActiveForm(), &one);
    EXPECT_EQ(one.activations, 2);
    FindWidget("one")->close();
    EXPECT_TRUE(main.Children().empty());
    EXPECT_EQ(main.ActiveForm(), nullptr);
    LetEventsRun();
    EXPECT_EQ(FindWidget("one"), nullptr);
    EXPECT_EQ(FindWidget("two"), nullptr);
}

TEST_F(MDITest, RefusedUnloadKeepsTheChild) {
    PlainForm& one = ShowChild("one");
    one.refuse = true;
    EXPECT_FALSE(one.Unload());
    FindWidget("one")->close();
    LetEventsRun();
    EXPECT_EQ(main.Children().size(), 1u);
    EXPECT_TRUE(FindWidget("one")->isVisible());
    EXPECT_EQ(one.queries, 2);
}

TEST_F(MDITest, FailedLoadLeavesNoChild) {
    auto child = std::make_unique<PlainForm>("one", Form::Kind::Child);
    child->onLoad = [] { throw RuntimeError(kOutOfMemory); };
    EXPECT_EQ(ErrorOf([&] { main.Adopt(std::move(child)); }), kOutOfMemory);
    EXPECT_TRUE(main.Children().empty());
}

TEST_F(MDITest, OneRefusalKeepsEverythingOpen) {
    PlainForm& one = ShowChild("one");
    PlainForm& two = ShowChild("two");
    two.refuse = true;
    EXPECT_FALSE(main.Unload());
    EXPECT_EQ(one.queries, 1);
    EXPECT_EQ(one.unloads, 0);
    EXPECT_EQ(main.unloads, 0);
    EXPECT_EQ(main.Children().size(), 2u);
    two.refuse = false;
    EXPECT_TRUE(main.Unload());
    EXPECT_EQ(main.unloads, 1);
    EXPECT_TRUE(main.Children().empty());
    EXPECT_EQ(main.ActiveForm(), nullptr);
}

TEST_F(MDITest, WhileTheMainWindowClosesNoChildBecomesActive) {
    std::vector<std::string> active;
    for (const char* name : {"one", "two", "three"})
        ShowChild(name).onActivate = [&active, name] { active.emplace_back(name); };
    main.Children().front()->Show();
    EXPECT_EQ(active, std::vector<std::string>{"one"});
    EXPECT_TRUE(main.Unload());
    LetEventsRun();
    EXPECT_EQ(active, std::vector<std::string>{"one"});
}

TEST_F(MDITest, ClosingTheMainWindowEndsTheEventLoop) {
    PlainForm& one = ShowChild("one");
    static_cast<void>(one);
    QTimer::singleShot(1, qApp, [] { FindWidget("main")->close(); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_FALSE(main.Loaded());
    EXPECT_EQ(main.unloads, 1);
}

TEST_F(MDITest, MaximisedChildIgnoresSizes) {
    PlainForm& one = ShowChild("one");
    one.WindowState(kMaximised);
    LetEventsRun();
    EXPECT_EQ(one.WindowState(), kMaximised);
    const double width = one.Width();
    EXPECT_GT(width, 4620);
    EXPECT_EQ(ClientOf("one")->width() * 15 + 120, width);
    one.Width(3120);
    EXPECT_EQ(one.Width(), width);
    one.WindowState(kNormal);
    LetEventsRun();
    EXPECT_EQ(one.WindowState(), kNormal);
    EXPECT_EQ(one.Width(), 4620);
    EXPECT_EQ(ClientOf("one")->size(), QSize(300, 304));
}

TEST_F(MDITest, SizeAssignedWhileMinimisedCountsAfterwards) {
    PlainForm& one = ShowChild("one");
    one.WindowState(kMinimised);
    LetEventsRun();
    EXPECT_EQ(one.WindowState(), kMinimised);
    EXPECT_EQ(one.Width(), 4620);
    one.Width(3120);
    one.WindowState(kNormal);
    LetEventsRun();
    EXPECT_EQ(one.Width(), 3120);
    EXPECT_EQ(ClientOf("one")->width(), 200);
}

TEST_F(MDITest, ClosingTheMaximisedChildMaximisesTheNext) {
    PlainForm& one = ShowChild("one");
    PlainForm& two = ShowChild("two");
    two.WindowState(kMaximised);
    LetEventsRun();
    two.Unload();
    LetEventsRun();
    EXPECT_EQ(main.ActiveForm(), &one);
    EXPECT_EQ(one.WindowState(), kMaximised);
}

TEST_F(MDITest, AMinimisedChildIsActiveWhenTheLastOpenOneCloses) {
    PlainForm& one = ShowChild("one");
    PlainForm& two = ShowChild("two");
    one.WindowState(kMinimised);
    LetEventsRun();
    two.Unload();
    LetEventsRun();
    EXPECT_EQ(main.ActiveForm(), &one);
    EXPECT_EQ(one.WindowState(), kMinimised);
    one.Unload();
    EXPECT_EQ(main.ActiveForm(), nullptr);
}

QRect PlaceOf(const std::string& name) {
    return FindWidget(name)->geometry();
}

TEST_F(MDITest, TilesHorizontallyInRows) {
    ShowChild("one");
    ShowChild("two");
    main.Arrange(1);
    const QSize room = static_cast<QMdiArea*>(FindWidget("workspace"))->maximumViewportSize();
    const QRect upper = PlaceOf("one");
    const QRect lower = PlaceOf("two");
    EXPECT_EQ(upper.width(), room.width());
    EXPECT_EQ(lower.width(), room.width());
    EXPECT_EQ(upper.top(), 0);
    EXPECT_EQ(lower.top(), upper.bottom() + 1);
    EXPECT_EQ(lower.bottom() + 1, room.height());
}

TEST_F(MDITest, AWindowThatClosesBehindAnotherLeavesThatActive) {
    PlainForm& one = ShowChild("one");
    ShowChild("two");
    PlainForm& three = ShowChild("three");
    int activations = 0;
    three.onActivate = [&activations] { ++activations; };
    EXPECT_TRUE(one.Unload());
    LetEventsRun();
    EXPECT_EQ(main.ActiveForm(), &three);
    EXPECT_EQ(activations, 0);
}

TEST_F(MDITest, AWindowThatLiesBeyondTheWorkspaceIsScrolledTo) {
    PlainForm& child = ShowChild("one");
    const auto* area = static_cast<QMdiArea*>(FindWidget("workspace"));
    EXPECT_FALSE(area->horizontalScrollBar()->isVisible() || area->verticalScrollBar()->isVisible());
    const QSize room = area->maximumViewportSize();
    child.Left((room.width() - 50) * 15);
    child.Top((room.height() - 50) * 15);
    EXPECT_TRUE(WaitFor([area] {
        return area->horizontalScrollBar()->isVisible() && area->verticalScrollBar()->isVisible();
    }));
}

TEST_F(MDITest, KeysWalkTheWindowsBothWays) {
    std::vector<std::string> active;
    for (const char* name : {"one", "two", "three"})
        ShowChild(name).onActivate = [&active, name] { active.emplace_back(name); };
    const auto press = [](QKeySequence::StandardKey key) {
        for (QShortcut* each : FindWidget("main")->findChildren<QShortcut*>())
            if (each->keys() == QKeySequence::keyBindings(key)) emit each->activated();
    };
    press(QKeySequence::PreviousChild);
    press(QKeySequence::PreviousChild);
    press(QKeySequence::NextChild);
    press(QKeySequence::NextChild);
    press(QKeySequence::NextChild);
    EXPECT_EQ(active, (std::vector<std::string>{"two", "one", "two", "three", "one"}));
}

// So that none hides another; the eleventh begins again.
TEST_F(MDITest, WindowsWithoutAPlaceStepDown) {
    for (int i = 0; i < 12; ++i) {
        const std::string name = "child " + std::to_string(i);
        auto child = std::make_unique<PlainForm>(name, Form::Kind::Child);
        main.Adopt(std::move(child)).Show();
        EXPECT_EQ(PlaceOf(name.c_str()).topLeft(), QPoint(i % 10 * 24, i % 10 * 24)) << i;
    }
}

TEST_F(MDITest, TilesVerticallyInColumns) {
    ShowChild("one");
    ShowChild("two");
    ShowChild("three");
    main.Arrange(2);
    const QSize room = static_cast<QMdiArea*>(FindWidget("workspace"))->maximumViewportSize();
    EXPECT_EQ(PlaceOf("one").height(), room.height());
    EXPECT_EQ(PlaceOf("two").left(), PlaceOf("one").right() + 1);
    EXPECT_EQ(PlaceOf("three").left(), PlaceOf("two").right() + 1);
    EXPECT_EQ(PlaceOf("three").right() + 1, room.width());
}

TEST_F(MDITest, CascadeStepsDownWithTheActiveOneLast) {
    PlainForm& one = ShowChild("one");
    ShowChild("two");
    one.Show();
    main.Arrange(0);
    EXPECT_EQ(PlaceOf("two").topLeft(), QPoint(0, 0));
    EXPECT_GT(PlaceOf("one").left(), 0);
    EXPECT_GT(PlaceOf("one").top(), 0);
    const QSize room = static_cast<QMdiArea*>(FindWidget("workspace"))->maximumViewportSize();
    for (const char* name : {"one", "two"})
        EXPECT_EQ(PlaceOf(name).size(), QSize(room.width() * 3 / 4, room.height() * 3 / 4)) << name;
    EXPECT_EQ(ErrorOf([&] { main.Arrange(3); }), kInvalidArgument);
}

TEST_F(MDITest, ArrangedWindowsLieWithinTheWorkspaceAndTilesFillIt) {
    const QSize size = static_cast<QMdiArea*>(FindWidget("workspace"))->maximumViewportSize();
    const QRect room(QPoint(0, 0), size);
    std::vector<std::string> names;
    for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"}) {
        names.emplace_back(name);
        ShowChild(name);
        for (const int layout : {0, 1, 2}) {
            SCOPED_TRACE(name + std::to_string(layout));
            main.Arrange(layout);
            QRegion covered;
            for (const std::string& each : names) {
                const QRect place = PlaceOf(each);
                EXPECT_TRUE(room.contains(place)) << each;
                EXPECT_TRUE(layout == 0 || !covered.intersects(place)) << each;
                covered += place;
            }
            EXPECT_TRUE(layout == 0 || covered == QRegion(room));
        }
    }
}

TEST_F(MDITest, EnlargedChildStaysWithinTheWorkspace) {
    PlainForm& child = ShowChild("one");
    auto* frame = static_cast<QMdiSubWindow*>(FindWidget("one"));
    const QSize room = frame->mdiArea()->maximumViewportSize();
    child.Left(1500);
    child.Top(750);
    StayInWorkspace(child); // is inside
    EXPECT_EQ(child.Left(), 1500);
    EXPECT_EQ(child.Width(), 4620);
    EXPECT_EQ(child.resizes, 1);
    // Fits, but not where it stands: it is moved.
    child.Width(4620 + (room.width() - frame->width()) * 15);
    StayInWorkspace(child);
    EXPECT_EQ(frame->geometry().left(), 0);
    EXPECT_EQ(frame->width(), room.width());
    EXPECT_EQ(child.Top(), 750);
    // Larger than the workspace: cut, and the form hears of it.
    const int before = child.resizes;
    child.Width(30000);
    child.Height(40000);
    StayInWorkspace(child);
    EXPECT_EQ(frame->geometry(), QRect(QPoint(0, 0), room));
    EXPECT_EQ(child.resizes, before + 4);
    child.WindowState(kMaximised);
    LetEventsRun();
    const QRect maximised = frame->geometry();
    StayInWorkspace(child);
    EXPECT_EQ(frame->geometry(), maximised);
}

TEST_F(MDITest, WindowListNamesTheOpenWindows) {
    MenuItem menu("mnuWindow", "&Janelas");
    MenuItem cascade("mnuWindowCascade", "&Cascata");
    menu.Add(cascade);
    main.AddMenu(menu);
    main.WindowListMenu(menu);
    PlainForm& one = ShowChild("one");
    PlainForm& two = ShowChild("two");
    one.Caption("A & B");
    auto* list = static_cast<QMenu*>(FindWidget("mnuWindow"));
    ASSERT_EQ(list->actions().size(), 4);
    EXPECT_TRUE(list->actions()[1]->isSeparator());
    EXPECT_EQ(list->actions()[2]->text(), QString("&1 A && B"));
    EXPECT_FALSE(list->actions()[2]->isChecked());
    EXPECT_TRUE(list->actions()[3]->isChecked());
    list->actions()[2]->trigger();
    EXPECT_TRUE(WaitFor([&] { return main.ActiveForm() == &one; }));
    EXPECT_TRUE(list->actions()[2]->isChecked());
    EXPECT_FALSE(list->actions()[3]->isChecked());
    two.Unload();
    EXPECT_EQ(list->actions().size(), 3);
    one.Unload();
    EXPECT_EQ(list->actions().size(), 1);
}

class PanelTest : public testing::Test {
  protected:
    Main main;
    Surface bottom{main, "bottom"}, left{main, "left"}, top{main, "top"}, right{main, "right"};
    void SetUp() override {
        main.RunLoad();
        bottom.Height(30 * 15);
        top.Height(40 * 15);
        left.Width(50 * 15);
        right.Width(60 * 15);
        main.AlignPanel(left, Align::Left);
        main.AlignPanel(top, Align::Top);
        main.AlignPanel(bottom, Align::Bottom);
        main.AlignPanel(right, Align::Right);
        main.Show();
        LetEventsRun();
    }
};

TEST_F(PanelTest, RowsTakeTheFullWidthAndSidesTheRest) {
    EXPECT_EQ(PlaceOf("top"), QRect(0, 0, 900, 40));
    EXPECT_EQ(PlaceOf("bottom"), QRect(0, 670, 900, 30));
    EXPECT_EQ(PlaceOf("left"), QRect(0, 40, 50, 630));
    EXPECT_EQ(PlaceOf("right"), QRect(840, 40, 60, 630));
    EXPECT_EQ(PlaceOf("workspace"), QRect(50, 40, 790, 630));
    EXPECT_EQ(left.Height(), 630 * 15);
    EXPECT_EQ(left.ScaleHeight(), 630);
    EXPECT_EQ(top.Image().Width(), 900);
}

TEST_F(PanelTest, HiddenPanelTakesNoRoom) {
    top.Visible(false);
    EXPECT_EQ(PlaceOf("left"), QRect(0, 0, 50, 670));
    top.Visible(true);
    EXPECT_EQ(PlaceOf("left"), QRect(0, 40, 50, 630));
    EXPECT_EQ(top.Height(), 600);
}

TEST_F(PanelTest, AssignedDepthMovesTheOthers) {
    int told = 0;
    int toldTop = 0;
    left.Resize = [&] { ++told; };
    top.Resize = [&] { ++toldTop; };
    top.Height(100 * 15);
    EXPECT_EQ(PlaceOf("top"), QRect(0, 0, 900, 100));
    EXPECT_EQ(PlaceOf("left"), QRect(0, 100, 50, 570));
    EXPECT_EQ(told, 1);
    EXPECT_EQ(toldTop, 0);
}

TEST_F(PanelTest, FollowTheMainWindow) {
    int told = 0;
    right.Resize = [&] { ++told; };
    FindWidget("main")->resize(1000, 800);
    LetEventsRun();
    EXPECT_EQ(PlaceOf("right"), QRect(940, 40, 60, 730));
    EXPECT_GE(told, 1);
}

} // namespace
} // namespace pintalux
