#include "settings/frmPrefs.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "settings/ModAssoc.h"
#include "settings/RecentFiles.h"
#include "surface/system/App.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Settings.h"
#include "surface/window/Layout.h"

namespace pintalux {

AutoForm<frmPrefsForm> frmPrefs;

frmPrefsForm::frmPrefsForm() : Form("frmPrefs", Kind::Dialog) {
    Caption("Preferências");
    SSTab1.AccessibleName("Grupos de preferências");
    Slider1.SmallChange(1);
    Slider1.LargeChange(5);
    Slider1.TickFrequency(5);
    Slider1.AccessibleName("JPEG Qualidade de Gravação");
    Slider1.Change = Slider1.Scroll = [this] { lblValue.Caption(NumberText(Slider1.Value())); };
    Command1.Default(true);
    Command2.Cancel(true);
    Check5.Click = [this] { Check5_Click(); };
    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    LayOut();
}

void frmPrefsForm::LayOut() {
    LayOutGrid(SSTab1.Page(0),
               {{&Check1, 0, 0}, {&Check2, 1, 0}, {&Check3, 2, 0}, {&Check4, 3, 0}, {nullptr, 4, 0}});
    LayOutGrid(SSTab1.Page(1), {{&Label1, 0, 0},
                                {&Combo1, 0, 1},
                                {&Label4, 0, 2},
                                {&Check5, 1, 0, 1, 3},
                                {&Label5, 2, 0},
                                {&Combo2, 2, 1},
                                {&Label6, 2, 2},
                                {nullptr, 3, 3}});
    LayOutGrid(Frame1, {{&Label2, 0, 0}, {&Slider1, 0, 1}, {&Label3, 0, 2}, {&lblValue, 0, 3}});
    LayOutGrid(SSTab1.Page(2), {{&Frame1, 0, 0}, {nullptr, 1, 0}});
    LayOutGrid(*this, {{&SSTab1, 0, 0, 1, 3}, {nullptr, 1, 0}, {&Command1, 1, 1}, {&Command2, 1, 2}});
    LabelFor(Label1, Combo1);
    LabelFor(Label5, Combo2);
}

void frmPrefsForm::Form_Load() {
    Slider1.Value(SettingInteger("JPGsaveQuality", 50, 10, 90));
    lblValue.Caption(NumberText(Slider1.Value()));
    Check1.Value(SettingInteger("ShowSplash", 1, 0, 1));
    Check2.Value(SettingInteger("Associate", 0, 0, 1));
    Check3.Value(SettingInteger("Clipmon", 1, 0, 1));
    Check4.Value(SettingInteger("SavePrompt", 0, 0, 1));
    Check5.Value(SettingInteger("Undoredo", 1, 0, 1));
    Combo1.ListIndex(SettingInteger("MRUlist", 1, 0, 4));
    Combo2.ListIndex(SettingInteger("UndoSteps", 0, 0, 5));
    Check5_Click();
}

void frmPrefsForm::Check5_Click() {
    const bool limited = Check5.Value() == 0;
    Label6.Enabled(limited);
    Label5.Enabled(limited);
    Combo2.Enabled(limited);
}

void frmPrefsForm::Save() try {
    SaveSettings(App.Title(), "Settings",
                 {{"JPGsaveQuality", NumberText(Slider1.Value())},
                  {"ShowSplash", NumberText(Check1.Value())},
                  {"Associate", NumberText(Check2.Value())},
                  {"Clipmon", NumberText(Check3.Value())},
                  {"SavePrompt", NumberText(Check4.Value())},
                  {"Undoredo", NumberText(Check5.Value())},
                  {"MRUlist", NumberText(Combo1.ListIndex())},
                  {"UndoSteps", NumberText(Combo2.ListIndex())}});
} catch (const RuntimeError& error) {
    MsgBox("Não foi possível salvar as preferências.\n" + error.Text(), BoxButtons::Ok, BoxIcon::Exclamation,
           kMessageTitle);
}

void frmPrefsForm::Command1_Click() {
    Save();
    MRUlimit = ToInt16(Val(Combo1.Text()));
    ApplyAssociation(Check2.Value() == 1);
    Unload();
}

void frmPrefsForm::Command2_Click() {
    Unload();
}

} // namespace pintalux
