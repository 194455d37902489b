#include "surface/window/Layout.h"
#include "surface/window/Display.h"
#include "surface/window/Inputs.h"
#include "surface/window/Screen.h"
#include "window/WindowTest.h"

#include <algorithm>
#include <QCursor>
#include <QLabel>

namespace pintalux {
namespace {

class GridForm : public PlainForm {
  public:
    GridForm()
        : PlainForm("grid", Kind::Dialog), label(*this, "label", "&Largura:"), text(*this, "text"),
          second(*this, "second"), sample(*this, "sample") {
        sample.Move(0, 0, 90 * 15, 70 * 15);
        LayOutGrid(*this,
                   {{&label, 0, 0}, {&second, 0, 1}, {&text, 1, 1}, {&sample, 2, 0, 1, 2, Place::Centre}});
        LabelFor(label, text);
    }
    Label label;
    TextBox text, second;
    Surface sample;
};

TEST(Layout, DialogFitsItsTexts) {
    GridForm form;
    form.Show();
    LetEventsRun();
    const double before = form.Width();
    EXPECT_GE(FindWidget("label")->width(), FindWidget("label")->sizeHint().width());
    form.label.Caption("A very much longer text that needs a very much wider dialog to be read");
    LetEventsRun();
    EXPECT_GE(FindWidget("label")->width(), FindWidget("label")->sizeHint().width());
    EXPECT_GT(form.Width(), before);
    EXPECT_EQ(FindWidget("grid")->width() * 15, form.Width());
}

TEST(Layout, ControlsFollowTheirPlaces) {
    GridForm form;
    form.Show();
    LetEventsRun();
    EXPECT_EQ(form.text.Left(), FindWidget("text")->x() * 15);
    EXPECT_EQ(form.text.Top(), FindWidget("text")->y() * 15);
    EXPECT_GT(form.text.Top(), form.second.Top());
}

TEST(Layout, SurfaceKeepsItsSize) {
    GridForm form;
    form.Show();
    LetEventsRun();
    EXPECT_EQ(FindWidget("sample")->size(), QSize(90, 70));
    EXPECT_EQ(form.sample.ScaleWidth(), 90);
    form.sample.Width(120 * 15);
    LetEventsRun();
    EXPECT_EQ(FindWidget("sample")->size(), QSize(120, 70));
}

TEST(Layout, TabKeyFollowsTheItems) {
    GridForm form;
    form.Show();
    LetEventsRun();
    const QWidget* at = FindWidget("second");
    do
        at = at->nextInFocusChain();
    while (!(at->focusPolicy() & Qt::TabFocus));
    EXPECT_EQ(at, FindWidget("text"));
}

TEST(Layout, LabelNamesItsControl) {
    GridForm form;
    EXPECT_EQ(FindWidget("text")->accessibleName(), QString("Largura"));
    EXPECT_EQ(static_cast<QLabel*>(FindWidget("label"))->buddy(), FindWidget("text"));
}

TEST(Screen, FontsAreSortedAndNamed) {
    const std::vector<std::string>& fonts = Screen.Fonts();
    EXPECT_EQ(Screen.FontCount(), static_cast<int>(fonts.size()));
    EXPECT_TRUE(std::is_sorted(fonts.begin(), fonts.end()));
    EXPECT_FALSE(fonts.empty());
}

TEST(Screen, PointerOverAllWindows) {
    Screen.MousePointer(kPointerHourglass);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    Screen.MousePointer(kPointerCross);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::CrossCursor);
    Screen.MousePointer(kPointerDefault);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(Screen.MousePointer(), kPointerDefault);
}

TEST(Screen, PointerPlace) {
    QCursor::setPos(33, 44);
    EXPECT_EQ(GetCursorPos(), (CursorPosition{33, 44}));
}

} // namespace
} // namespace pintalux
