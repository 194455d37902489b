#include "surface/window/HelpWindow.h"
#include "window/WindowTest.h"

#include <QFontMetrics>
#include <QTextBrowser>
#include <QTextDocument>

namespace pintalux {
namespace {

TEST(HelpWindow, OpensLargeEnoughToReadIn) {
    ShowHelpPage({"Ajuda", ":/none.html", "dialogs"});
    QWidget* window = FindWidget("help");
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), "Ajuda");
    const QWidget* text = static_cast<QTextBrowser*>(FindWidget("helpText"))->viewport();
    const QFontMetrics letters = text->fontMetrics();
    EXPECT_GE(text->width(), 60 * letters.averageCharWidth());
    EXPECT_GE(text->height(), 20 * letters.height());
    EXPECT_GE(static_cast<QTextBrowser*>(FindWidget("helpText"))->document()->documentMargin(), 10);
    EXPECT_EQ(FindWidget("helpText")->geometry(), window->rect()) << "the scroll bar stands at the edge";
    window->close();
    window->resize(500, 450);
    ShowHelpPage({"Ajuda", ":/none.html", "dialogs"});
    EXPECT_EQ(window->size(), QSize(500, 450)) << "as its user left it";
    window->close();
}

} // namespace
} // namespace pintalux
