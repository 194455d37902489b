// The hand with a tool: the fixture of the tool tests.
#pragma once

#include "document/BarPositions.h"
#include "document/Globals.h"
#include "document/Zoom.h"
#include "settings/frmPrefs.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"
#include "tools/DrawingModel.h"

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace pintalux {

class ToolTest : public ProgramTest {
  protected:
    using Path = std::vector<std::pair<double, double>>;

    void SetUp() override {
        ProgramTest::SetUp();
        Start();
        frmPrefs->Check4.Value(1); // Closing asks nothing.
        frmMain->SetCurrentColour(kInk);
    }

    /// Clicks the tool's button on the tool bar.
    static void Choose(const std::string& key) {
        QWidget* button = Find(WidgetFor(frmMain->TB2), "TB2_" + key);
        ASSERT_NE(button, nullptr);
        ClickWidget(*button);
    }

    /// Chooses a level by the zoom menu.
    static void ZoomToLevel(int level) {
        if (level >= 15) {
            mnuZoomInX_Click(level - 15);
        } else {
            mnuZoomOutX_Click(15 - level);
        }
    }

    /// View pixels per image pixel, by the table of the zoom levels.
    static double FactorOf(int level) {
        return level < 15 ? 1.0 / (16 - level) : level == 15 ? 1.0 : level - 14.0;
    }

    /// The image pixel under a view pixel.
    static int At(double view, double factor) { return static_cast<int>(std::floor(view / factor)); }

    static void Click(frmImage& image, double x, double y, int button = kLeftButton) {
        Press(image, x, y, button);
        Release(image, x, y, button);
    }

    static int States(const frmImage& image) { return image.ListBUorder.ListCount(); }

    static void ExpectImage(const frmImage& image, const DrawingModel& model) {
        ExpectSamePixels(ImageOf(image), model.Result());
    }

    static constexpr Colour kInk = 0x2040C0;
    static constexpr Pixel kInkPixel = 0x2040C0;
};

} // namespace pintalux
