// Every leaf of the menus and every button of the tool bar, run in a program where each has something to do:
// none is without function.
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "devices/frmScanWait.h"
#include "devices/sane/SaneCalls.h"
#include "document/Globals.h"
#include "document/UndoCommands.h"
#include "document/Zoom.h"
#include "selection/RectangleSelection.h"
#include "settings/frmPrefs.h"
#include "surface/system/Clipboard.h"
#include "surface/system/Printer.h"

#include <cstdlib>
#include <fstream>
#include <map>
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QWidget>
#include <sstream>

namespace pintalux {

namespace {

/// How many windows a command shows and waits for; the others answer at once.
const std::map<std::string, int> kDialogs = {{"mnuFileNew", 1},
                                             {"mnuFileOpen", 1},
                                             {"mnuFileSaveAs", 1},
                                             {"mnuFileAquire", 3},
                                             {"mnuFileTSelect", 2},
                                             {"mnuFilePrinterSetup", 1},
                                             {"mnuFileSaveOptions", 1},
                                             {"mnuImageProperties", 1},
                                             {"mnuResize", 1},
                                             {"mnuAddBorders", 1},
                                             {"mnuBorderWiz", 1},
                                             {"mnuFiltBrow", 1},
                                             {"mnuWindowNewWindow", 1},
                                             {"New", 1},
                                             {"Open", 1},
                                             {"Text", 1}};

bool IsAmong(const std::string& name, std::initializer_list<const char*> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

class WalkTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        TheScanPatience = {std::chrono::milliseconds(0), 0}; // each wait shows its window
        EndSane();
        OpenScannerLibrary = []() -> void* { return nullptr; }; // neither library nor device, on any machine
        std::ofstream(Folder("settings") + "/dll.conf") << "# none\n";
        ::setenv("SANE_CONFIG_DIR", Folder("settings").c_str(), 1);
        {
            const DialogScript script({PressesButton("OK")}); // that there is no scanner
            Start();
        }
        frmMain->mnuFileTwain.Enabled(true);
    }
    void TearDown() override {
        EndSane();
        ::unsetenv("SANE_CONFIG_DIR");
        Clipboard.Clear();
        ProgramTest::TearDown();
    }

    /// Two documents, the active one from a file, with states before and behind it; a bitmap on the
    /// clipboard; a selection and a zoom for what needs them.
    void SetScene(const std::string& name) {
        frmPrefs->Check4.Value(1); // nothing is asked
        while (ImageCount > 0) {
            frmMain->ActiveForm()->Unload();
            PassEvents();
        }
        Printer().PrintToFileForTests(Folder("pictures") + "/page.pdf");
        Clipboard.SetData(Solid(6, 5, 0x123456));
        NewDocument(40, 30);
        Picture picture = Solid(20, 10, 0x406080);
        picture.Set(3, 2, 0x0000FF);
        frmImage& image = OpenPicture("active.bmp", picture);
        Edit(image, 0x00FF00);
        Edit(image, 0x908070);
        if (!IsAmong(name, {"mnuEditRedo", "Redo"})) mnuEditUndo_Click();
        if (!IsAmong(name, {"mnuEditUndo", "Undo", "mnuFileSave", "Save"})) mnuEditUndo_Click();
        if (IsAmong(name, {"mnuEditCut", "mnuEditCopy", "mnuEditSelectNone", "Cut", "Copy"}))
            mnuEditSelectAll_Click();
        if (IsAmong(name, {"mnuZoomActual", "mnuZoomInX0", "mnuZoomOutX0"})) mnuZoomInX_Click(2);
        CurrentTool = 0;
        frmMain->Timer1_Timer();
    }

    /// All that a command can change, as one text.
    std::string Sight() const {
        std::ostringstream sight;
        for (const MenuItem* item : frmMain->Items())
            sight << item->Checked();
        sight << ' ' << frmMain->ToolsTB.Visible() << frmMain->ColTB.Visible()
              << frmMain->ToolSettings.Visible() << ' ' << static_cast<int>(CurrentTool) << ' '
              << BytesOf(Folder("pictures") + "/active.bmp")
              << std::filesystem::exists(Folder("pictures") + "/page.pdf") << ' ';
        for (const auto& child : frmMain->Children()) {
            const auto& image = static_cast<const frmImage&>(*child);
            sight << image.Caption() << ' ' << image.Left() << ' ' << image.Top() << ' ' << image.factorlevel
                  << ' ' << image.ListBackup.ListCount() << ' ' << image.ListBUorder.ListIndex() << ' '
                  << image.PicSelect.Visible() << CornerOf(image) << '\n';
        }
        const Picture copied = Clipboard.GetData();
        return sight.str() + std::to_string(copied.Width());
    }

    /// Runs one command in its scene: windows come, or something has changed.
    template <class Run>
    void ExpectFunction(const std::string& name, Run run) {
        SCOPED_TRACE(name);
        SetScene(name);
        const std::string before = Sight();
        const auto dialogs = kDialogs.find(name);
        const int expected = dialogs == kDialogs.end() ? 0 : dialogs->second;
        std::vector<DialogScript::Step> steps(static_cast<std::size_t>(expected), ClosesDialog());
        if (name.starts_with("mnuFileA") || name == "mnuFileTSelect")
            steps.front() = [](QWidget&) {}; // the search, which ends by itself
        {
            const DialogScript script(steps);
            run();
            PassEvents();
        }
        if (expected == 0) {
            EXPECT_NE(Sight(), before);
        }
        if (name.starts_with("mnuView") && name != "mnuViewRulers") run(); // the panels back again
    }

    static void CollectLeaves(const QList<QAction*>& actions, std::vector<QAction*>& leaves) {
        for (QAction* action : actions) {
            if (action->menu() != nullptr) {
                CollectLeaves(action->menu()->actions(), leaves);
            } else if (!action->isSeparator() && action->objectName().startsWith("mnu")) {
                leaves.push_back(action);
            }
        }
    }
    static std::vector<QAction*> Leaves() {
        std::vector<QAction*> leaves;
        CollectLeaves(WidgetFor(*frmMain).findChildren<QMenuBar*>().constFirst()->actions(), leaves);
        return leaves;
    }
};

TEST_F(WalkTest, EveryMenuItemDoesSomething) {
    SetScene("");
    std::vector<std::string> names;
    for (const QAction* leaf : Leaves())
        names.push_back(leaf->objectName().toStdString());
    ASSERT_GT(names.size(), 70U);
    for (const std::string& name : names) {
        if (name == "mnuFileExit") continue;
        ExpectFunction(name, [&name] {
            for (QAction* leaf : Leaves()) {
                if (leaf->objectName().toStdString() != name) continue;
                EXPECT_TRUE(leaf->isEnabled());
                leaf->trigger();
                return;
            }
            ADD_FAILURE() << "it is gone";
        });
    }
    frmMain->mnuFileExit.Click();
    PassEvents();
    EXPECT_FALSE(frmMain.Loaded());
}

TEST_F(WalkTest, EveryToolButtonDoesSomething) {
    for (int position = 1; position <= frmMain->TB2.ButtonCount(); ++position) {
        ToolButton& button = frmMain->TB2.Buttons(position);
        if (button.Key().empty()) continue;
        ExpectFunction(button.Key(), [&button] {
            EXPECT_TRUE(button.Enabled());
            frmMain->TB2_ButtonClick(button);
        });
    }
}

} // namespace

} // namespace pintalux
