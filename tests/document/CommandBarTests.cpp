// The bar of buttons with its progress bar, in windows of every width.
#include "support/Program.h"

#include <QImage>
#include <QToolButton>

namespace pintalux {
namespace {

class CommandBarTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
    /// Where a part of the bar lies, in its pixels.
    static QRect PlaceOf(const QWidget& part) {
        return {part.mapTo(&WidgetFor(frmMain->ToolsTB), QPoint(0, 0)), part.size()};
    }
};

TEST_F(CommandBarTest, AtEveryWidthButtonsAndProgressHaveTheirRoom) {
    QWidget& window = WidgetFor(*frmMain);
    const QWidget& bar = WidgetFor(frmMain->ToolsTB);
    int besides = 0, belows = 0;
    for (int width = 300; width < 1500; width += 23) {
        SCOPED_TRACE(width);
        window.resize(width, 700);
        PassEvents();
        const QRect progress = PlaceOf(WidgetFor(frmMain->Pb));
        EXPECT_TRUE(bar.rect().contains(progress));
        EXPECT_GE(progress.width(), 100);
        int lowest = 0;
        for (const QToolButton* button : WidgetFor(frmMain->TB2).findChildren<QToolButton*>()) {
            const QRect place = PlaceOf(*button);
            ASSERT_TRUE(bar.rect().contains(place)) << button->objectName().toStdString();
            ASSERT_TRUE(WidgetFor(frmMain->TB2).rect().contains(button->geometry()));
            ASSERT_FALSE(place.intersects(progress)) << button->objectName().toStdString();
            lowest = std::max(lowest, place.bottom());
        }
        EXPECT_LE(bar.height() - lowest, 6) << "no row is empty";
        ++(progress.top() > lowest ? belows : besides);
    }
    EXPECT_GT(besides, 5);
    EXPECT_GT(belows, 5);
}

TEST_F(CommandBarTest, EveryButtonOfTheWindowPaintsItsPicture) {
    int pictures = 0;
    for (QAbstractButton* button : WidgetFor(*frmMain).findChildren<QAbstractButton*>()) {
        if (button->icon().isNull() || !button->isVisible()) continue;
        const QImage shown = button->grab().toImage();
        button->setIcon({});
        EXPECT_NE(button->grab().toImage(), shown) << button->objectName().toStdString();
        ++pictures;
    }
    EXPECT_GT(pictures, 24);
}

TEST_F(CommandBarTest, TheWindowKeepsRoomForAnImageBetweenThePanels) {
    QWidget& window = WidgetFor(*frmMain);
    window.resize(10, 10);
    PassEvents();
    const QWidget& left = WidgetFor(frmMain->ToolSettings);
    const QWidget& right = WidgetFor(frmMain->ColTB);
    const int between =
        right.mapTo(&window, QPoint(0, 0)).x() - left.mapTo(&window, QPoint(left.width(), 0)).x();
    EXPECT_GE(between, 60);
    EXPECT_GE(left.height(), 150);
}

} // namespace
} // namespace pintalux
