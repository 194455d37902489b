#include "surface/window/Display.h"
#include "surface/window/Inputs.h"
#include "surface/window/Layout.h"
#include "surface/window/Surface.h"
#include "surface/window/Timer.h"
#include "window/WindowTest.h"

#include <QCloseEvent>
#include <QKeyEvent>

namespace pintalux {
namespace {

TEST(Form, AssignedSizeStaysExactly) {
    PlainForm form;
    form.Width(4627);
    form.Height(3001);
    form.Show();
    LetEventsRun();
    EXPECT_EQ(form.Width(), 4627);
    EXPECT_EQ(form.Height(), 3001);
    EXPECT_EQ(FindWidget("plain")->width(), 308); // 308.47 pixels
}

TEST(Form, FollowsTheUsersResizing) {
    PlainForm form;
    form.Move(0, 0, 3000, 3000);
    form.RunLoad();
    form.Show();
    LetEventsRun();
    const int before = form.resizes;
    FindWidget("plain")->resize(250, 120);
    LetEventsRun();
    EXPECT_EQ(form.Width(), 3750);
    EXPECT_EQ(form.Height(), 1800);
    EXPECT_EQ(form.ScaleWidth(), 3750);
    EXPECT_EQ(form.resizes, before + 1);
}

TEST(Form, FollowsTheUsersMoving) {
    PlainForm form;
    form.Move(150, 300, 3000, 3000);
    form.Show();
    EXPECT_EQ(FindWidget("plain")->pos(), QPoint(10, 20));
    FindWidget("plain")->move(33, 44);
    LetEventsRun();
    EXPECT_EQ(form.Left(), 495);
    EXPECT_EQ(form.Top(), 660);
}

TEST(Form, AssignedPlaceIsWhereItStands) {
    for (const bool shown : {false, true}) {
        SCOPED_TRACE(shown ? "while it shows" : "before it shows");
        PlainForm form;
        form.Width(3000);
        form.Height(3000);
        if (shown) form.Show();
        const auto place = [&form] {
            form.Show();
            LetEventsRun();
            return FindWidget("plain")->pos();
        };
        form.Left(40 * 15);
        form.Top(30 * 15);
        EXPECT_EQ(place(), QPoint(40, 30));
        form.Left(90 * 15);
        EXPECT_EQ(place(), QPoint(90, 30));
        form.Top(120 * 15);
        EXPECT_EQ(place(), QPoint(90, 120));
        form.Move(15, 75, 4500, 4500);
        EXPECT_EQ(place(), QPoint(1, 5));
        EXPECT_EQ(form.Left(), 15);
        EXPECT_EQ(form.Top(), 75);
        form.Hide();
    }
}

TEST(Form, AssignmentRunsResizeNested) {
    PlainForm form;
    form.Move(0, 0, 3000, 3000);
    form.RunLoad();
    EXPECT_EQ(form.resizes, 0); // not shown yet
    form.Show();
    EXPECT_EQ(form.resizes, 1);
    form.Width(4500);
    EXPECT_EQ(form.resizes, 2);
    form.Width(4500);
    form.Left(30);
    EXPECT_EQ(form.resizes, 2);
}

TEST(Form, ErrorOfNestedResizePassesToTheAssignment) {
    UntrappedErrors errors;
    PlainForm form;
    form.Move(0, 0, 3000, 3000);
    form.RunLoad();
    form.Show();
    form.onResize = [] { throw RuntimeError(kSubscriptOutOfRange); };
    EXPECT_EQ(ErrorOf([&] { form.Width(4500); }), kSubscriptOutOfRange);
    EXPECT_TRUE(errors.numbers.empty());
    FindWidget("plain")->resize(111, 111); // by hand it is untrapped
    LetEventsRun();
    EXPECT_EQ(errors.numbers, std::vector<int>{kSubscriptOutOfRange});
    form.onResize = nullptr;
}

TEST(Form, CloseBoxAsksFirst) {
    PlainForm form;
    form.RunLoad();
    form.Show();
    form.refuse = true;
    FindWidget("plain")->close();
    EXPECT_TRUE(form.Loaded());
    EXPECT_TRUE(FindWidget("plain")->isVisible());
    EXPECT_EQ(form.queries, 1);
    EXPECT_EQ(form.unloads, 0);
    form.refuse = false;
    FindWidget("plain")->close();
    EXPECT_FALSE(form.Loaded());
    EXPECT_FALSE(FindWidget("plain")->isVisible());
    EXPECT_EQ(form.unloads, 1);
}

TEST(Form, VisibleShowsAndHidesIt) {
    PlainForm form;
    form.Visible(false);
    EXPECT_EQ(form.loads, 0);
    form.Visible(true);
    EXPECT_EQ(form.loads, 1);
    EXPECT_TRUE(FindWidget("plain")->isVisible());
    form.Visible(false);
    EXPECT_FALSE(FindWidget("plain")->isVisible());
    EXPECT_TRUE(form.Loaded());
    form.Visible(true);
    EXPECT_TRUE(FindWidget("plain")->isVisible());
    EXPECT_EQ(form.loads, 1);
}

// An error while it asks, or saves, is no answer: it stays, and may be closed again.
TEST(Form, ErrorOfItsUnloadKeepsItAndItUnloadsLater) {
    class Failing : public PlainForm {
      public:
        bool failsToAsk = false, failsToGo = false;

      protected:
        void Form_QueryUnload(bool& Cancel) override {
            PlainForm::Form_QueryUnload(Cancel);
            if (failsToAsk) throw RuntimeError(kDiskFull);
        }
        void Form_Unload() override {
            if (failsToGo) throw RuntimeError(kDeviceError);
            PlainForm::Form_Unload();
        }
    };
    Failing form;
    form.Show();
    form.failsToAsk = true;
    EXPECT_EQ(ErrorOf([&] { form.Unload(); }), kDiskFull);
    form.failsToAsk = false;
    form.failsToGo = true;
    EXPECT_EQ(ErrorOf([&] { form.Unload(); }), kDeviceError);
    EXPECT_TRUE(form.Loaded());
    EXPECT_TRUE(FindWidget("plain")->isVisible());
    form.failsToGo = false;
    EXPECT_TRUE(form.Unload());
    EXPECT_FALSE(form.Loaded());
    EXPECT_EQ(form.queries, 3);
    EXPECT_EQ(form.unloads, 1);
}

TEST(Form, ZeroZeroIsAPlace) {
    PlainForm centred("centred", Form::Kind::Splash);
    centred.Width(1500);
    centred.Show();
    EXPECT_NE(FindWidget("centred")->pos(), QPoint(0, 0));
    PlainForm placed("placed", Form::Kind::Splash);
    placed.Width(1500);
    placed.Left(0);
    placed.Top(0);
    placed.Show();
    EXPECT_EQ(FindWidget("placed")->pos(), QPoint(0, 0));
    EXPECT_TRUE(FindWidget("placed")->testAttribute(Qt::WA_Moved)); // the desktop chooses no other place
}

TEST(Form, OneCoordinateIsAPlace) {
    for (const bool left : {true, false}) {
        PlainForm placed("placed", Form::Kind::Splash);
        placed.Width(1500);
        left ? placed.Left(40 * 15) : placed.Top(40 * 15);
        placed.Show();
        EXPECT_EQ(FindWidget("placed")->pos(), left ? QPoint(40, 0) : QPoint(0, 40));
    }
}

int livingForms = 0;
class CountedForm : public PlainForm {
  public:
    CountedForm() : PlainForm("counted") { ++livingForms; }
    ~CountedForm() override { --livingForms; }
    int value = 3;
};

TEST(AutoForm, LoadsAtTheFirstReferenceAndAgainAfterUnload) {
    AutoForm<CountedForm> form;
    EXPECT_FALSE(form.Loaded());
    form->value = 9;
    EXPECT_EQ(form->loads, 1);
    EXPECT_EQ(form->value, 9);
    EXPECT_TRUE(form.Unload());
    EXPECT_FALSE(form.Loaded());
    EXPECT_EQ(form->value, 3);
    EXPECT_TRUE(form.Unload());
    LetEventsRun();
    EXPECT_EQ(livingForms, 0);
}

TEST(AutoForm, RefusedUnloadKeepsIt) {
    AutoForm<CountedForm> form;
    form->value = 5;
    form->refuse = true;
    EXPECT_FALSE(form.Unload());
    EXPECT_EQ(form->value, 5);
}

TEST(AutoForm, UnloadingInsideAHandlerKeepsTheObjectUntilTheHandlerIsOver) {
    AutoForm<CountedForm> form;
    CountedForm* const inside = &*form;
    RunEvent(EventKind::Ordinary, [&] {
        inside->Unload();
        LetEventsRun(); // a handler with an event loop of its own
        EXPECT_EQ(livingForms, 1);
        inside->value = 7;
    });
    LetEventsRun();
    EXPECT_EQ(livingForms, 0);
}

class FailingForm : public PlainForm {
  public:
    static inline bool fail = true;
    FailingForm() {
        onLoad = [] {
            if (fail) throw RuntimeError(kFileNotFound);
        };
    }
};

TEST(AutoForm, FailedLoadIsTriedAnew) {
    AutoForm<FailingForm> form;
    EXPECT_EQ(ErrorOf([&] { form->Show(); }), kFileNotFound);
    EXPECT_FALSE(form.Loaded());
    FailingForm::fail = false;
    EXPECT_TRUE(form->Loaded());
}

TEST(ModalForm, ReturnsWhenHiddenAndTimersGoOn) {
    PlainForm dialog("dialog", Form::Kind::Dialog);
    dialog.Move(0, 0, 3000, 1500);
    dialog.RunLoad();
    Timer timer(1);
    int ticks = 0;
    timer.Tick = [&] {
        if (++ticks == 4) dialog.Hide();
    };
    timer.Enabled(true);
    dialog.ShowModal();
    EXPECT_EQ(ticks, 4);
    EXPECT_TRUE(dialog.Loaded());
    EXPECT_FALSE(dialog.Visible());
}

TEST(ModalForm, ReturnsWhenUnloadedInsideItsOwnHandler) {
    AutoForm<CountedForm> dialog;
    QTimer::singleShot(1, qApp, [&] { RunEvent(EventKind::Ordinary, [&] { dialog->Unload(); }); });
    dialog->ShowModal();
    EXPECT_FALSE(dialog.Loaded());
    LetEventsRun();
    EXPECT_EQ(livingForms, 0);
}

TEST(ModalForm, CloseBoxEndsIt) {
    PlainForm dialog("dialog", Form::Kind::Dialog);
    dialog.RunLoad();
    QTimer::singleShot(1, qApp, [] { FindWidget("dialog")->close(); });
    dialog.ShowModal();
    EXPECT_FALSE(dialog.Loaded());
}

TEST(ModalForm, GivesTheFocusBack) {
    PlainForm form;
    form.Move(0, 0, 3000, 3000);
    Surface surface(form, "surface");
    surface.Move(0, 0, 1500, 1500);
    form.Show();
    QWidget* widget = FindWidget("surface");
    widget->setFocusPolicy(Qt::StrongFocus);
    FindWidget("plain")->activateWindow();
    surface.SetFocus();
    ASSERT_TRUE(WaitFor([&] { return QApplication::focusWidget() == widget; }));
    PlainForm dialog("dialog", Form::Kind::Dialog);
    QTimer::singleShot(1, qApp, [&] { dialog.Hide(); });
    dialog.ShowModal();
    EXPECT_TRUE(WaitFor([&] { return QApplication::focusWidget() == widget; }));
}

TEST(ModalForm, StandsOverTheMiddleOfTheActiveWindow) {
    PlainForm form;
    form.Move(150, 300, 3000, 2700);
    form.Show();
    FindWidget("plain")->activateWindow();
    ASSERT_TRUE(WaitFor([] { return FindWidget("plain")->isActiveWindow(); }));
    PlainForm dialog("dialog", Form::Kind::Dialog);
    dialog.Width(1500);
    dialog.Height(900);
    QPoint middle;
    QTimer::singleShot(1, qApp, [&] {
        EXPECT_TRUE(FindWidget("dialog")->isModal());
        middle = FindWidget("dialog")->geometry().center();
        dialog.Hide();
    });
    dialog.ShowModal();
    EXPECT_FALSE(FindWidget("dialog")->isModal());
    // The frame is only guessed before the dialog shows.
    EXPECT_LE((middle - FindWidget("plain")->geometry().center()).manhattanLength(), 40);
}

TEST(ModalForm, FirstControlHasTheFocusAtEachShowing) {
    PlainForm dialog("dialog", Form::Kind::Dialog);
    Label label(dialog, "label", "&Largura");
    TextBox first(dialog, "first");
    TextBox second(dialog, "second");
    CommandButton ok(dialog, "cmdOK", "OK");
    ok.Default(true);
    int presses = 0;
    ok.Click = [&] {
        ++presses;
        dialog.Hide();
    };
    LayOutGrid(dialog, {{&label, 0, 0}, {&first, 0, 1}, {&second, 1, 1}, {&ok, 2, 1}});
    for (int showing = 1; showing <= 2; ++showing) {
        // Nobody answers a dialog before it is active; without a window manager it is so once.
        QTimer hand;
        QObject::connect(&hand, &QTimer::timeout, [&] {
            if (showing == 1 && !FindWidget("dialog")->isActiveWindow()) return;
            hand.stop();
            EXPECT_EQ(FindWidget("dialog")->focusWidget()->objectName(), "first") << showing;
            QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
            QCoreApplication::sendEvent(FindWidget("first"), &enter);
            if (dialog.Visible()) dialog.Hide();
        });
        hand.start(1);
        dialog.ShowModal();
        EXPECT_EQ(presses, showing);
    }
}

TEST(Form, LifeGoesFromMadeToGone) {
    PlainForm form;
    EXPECT_FALSE(form.Loaded());
    EXPECT_TRUE(form.Unload()); // nothing to unload
    EXPECT_EQ(form.queries, 0);
    form.Show(); // loads it first
    EXPECT_EQ(form.loads, 1);
    EXPECT_TRUE(form.Loaded());
    form.refuse = true;
    EXPECT_FALSE(form.Unload());
    FindWidget("plain")->resize(250, 120); // it is shown as before
    LetEventsRun();
    EXPECT_EQ(form.Width(), 3750);
    form.refuse = false;
    EXPECT_TRUE(form.Unload());
    EXPECT_FALSE(form.Loaded());
    form.Show(); // nothing leads back
    EXPECT_FALSE(FindWidget("plain")->isVisible());
    EXPECT_EQ(form.loads, 1);
}

TEST(LockWindowUpdate, LocksOneWindowAtATime) {
    PlainForm form;
    Surface one(form, "one");
    Surface two(form, "two");
    EXPECT_TRUE(LockWindowUpdate(&one));
    EXPECT_FALSE(FindWidget("one")->updatesEnabled());
    EXPECT_FALSE(LockWindowUpdate(&two));
    EXPECT_TRUE(FindWidget("two")->updatesEnabled());
    EXPECT_TRUE(LockWindowUpdate(nullptr));
    EXPECT_TRUE(FindWidget("one")->updatesEnabled());
    EXPECT_TRUE(LockWindowUpdate(&two));
    EXPECT_TRUE(LockWindowUpdate(nullptr));
}

TEST(LockWindowUpdate, WhatALockHoldsBackIsPaintedWhenItsHandlerIsOver) {
    PlainForm form;
    Surface one(form, "one");
    Surface two(form, "two");
    RunEvent(EventKind::Ordinary, [&] {
        RunEvent(EventKind::Ordinary, [] {}); // a handler nested before does not count
        EXPECT_TRUE(LockWindowUpdate(&one));
        RunEvent(EventKind::Ordinary, [&] { EXPECT_TRUE(LockWindowUpdate(&one)); });
        EXPECT_FALSE(FindWidget("one")->updatesEnabled()); // the outer handler took it
    });
    EXPECT_TRUE(FindWidget("one")->updatesEnabled());
    EXPECT_FALSE(LockWindowUpdate(&two)); // but the lock stays recorded
    RunEvent(EventKind::Ordinary, [&] {
        EXPECT_TRUE(LockWindowUpdate(&one)); // and may be taken again
        EXPECT_FALSE(FindWidget("one")->updatesEnabled());
    });
    EXPECT_TRUE(FindWidget("one")->updatesEnabled());
    EXPECT_TRUE(LockWindowUpdate(nullptr));
    EXPECT_TRUE(LockWindowUpdate(&two));
    EXPECT_TRUE(LockWindowUpdate(nullptr));
}

TEST(LockWindowUpdate, LockOfAHandlerThatFailsIsPaintedToo) {
    UntrappedErrors errors;
    PlainForm form;
    Surface one(form, "one");
    RunEvent(EventKind::Ordinary, [&] {
        LockWindowUpdate(&one);
        throw RuntimeError(kInvalidArgument);
    });
    EXPECT_EQ(errors.numbers, std::vector<int>{kInvalidArgument});
    EXPECT_TRUE(FindWidget("one")->updatesEnabled());
    LockWindowUpdate(nullptr);
}

TEST(LockWindowUpdate, LockOutsideAnyHandlerIsPaintedByTheEventLoop) {
    PlainForm form;
    Surface one(form, "one");
    Surface two(form, "two");
    EXPECT_TRUE(LockWindowUpdate(&one));
    EXPECT_FALSE(FindWidget("one")->updatesEnabled());
    EXPECT_TRUE(WaitFor([] { return FindWidget("one")->updatesEnabled(); }));
    EXPECT_FALSE(LockWindowUpdate(&two));
    LockWindowUpdate(nullptr);
}

TEST(LockWindowUpdate, DeadWindowHoldsNoLock) {
    PlainForm form;
    {
        Surface one(form, "one");
        EXPECT_TRUE(LockWindowUpdate(&one));
    }
    Surface two(form, "two");
    EXPECT_TRUE(LockWindowUpdate(&two));
    EXPECT_TRUE(LockWindowUpdate(nullptr));
}

TEST(Form, WindowStates) {
    PlainForm form;
    form.Move(0, 0, 3000, 3000);
    form.RunLoad();
    form.WindowState(kMaximised);
    EXPECT_EQ(form.WindowState(), kMaximised);
    form.Show();
    EXPECT_TRUE(WaitFor([&] { return form.Width() > 3000; }));
    EXPECT_EQ(form.WindowState(), kMaximised);
    const double maximised = form.Width();
    form.Width(1500); // does nothing meanwhile
    EXPECT_EQ(form.Width(), maximised);
    form.WindowState(kNormal);
    EXPECT_TRUE(WaitFor([&] { return form.WindowState() == kNormal; }));
    EXPECT_EQ(ErrorOf([&] { form.WindowState(3); }), kInvalidPropertyValue);
}

} // namespace
} // namespace pintalux
