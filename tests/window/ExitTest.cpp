// Forms that are still loaded when the program ends: static objects outlive the toolkit.
#include "surface/window/Display.h"
#include "surface/window/Menu.h"
#include "surface/window/Timer.h"
#include "window/WindowTest.h"

namespace pintalux {
namespace {

class OutlivingForm : public PlainForm {
  public:
    OutlivingForm()
        : PlainForm("outliving"), surface(*this, "outlivingSurface"), display(surface, "outlivingDisplay"),
          timer(1), menu("outlivingMenu", "M"), item("outlivingItem", "I") {
        timer.Enabled(true);
        menu.Add(item);
    }
    ~OutlivingForm() override {
        // Members still answer although no widget is left.
        surface.Move(0, 0, 150, 150);
        display.Picture(surface.Image());
        item.Checked(true);
        Caption("gone");
    }
    Surface surface;
    Display display;
    Timer timer;
    MenuItem menu, item;
};

AutoForm<OutlivingForm> outliving;

TEST(Exit, LoadedFormMayOutliveTheToolkit) {
    outliving->Show();
    LetEventsRun();
    EXPECT_TRUE(FindWidget("outliving")->isVisible());
    EXPECT_TRUE(outliving.Loaded()); // The end of the program does the rest.
}

} // namespace
} // namespace pintalux
