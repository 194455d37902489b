#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Program.h"

#include "app/frmSplash.h"
#include "settings/frmPrefs.h"
#include "settings/RecentFiles.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QTabBar>

#include <algorithm>
#include <vector>

namespace pintalux {

namespace {

class PreferencesTest : public ProgramTest {
  protected:
    // Shows the Preferences from the menu and acts there by hand.
    void InPreferences(const DialogScript::Step& act) {
        const DialogScript script({act});
        Choose(frmMain->mnuFileSaveOptions);
        EXPECT_FALSE(frmPrefs.Loaded());
    }
    static void Set(const std::vector<std::pair<std::string, std::string>>& values) {
        for (const auto& [key, text] : values)
            SetSetting(key, text);
    }
};

} // namespace

TEST_F(PreferencesTest, FirstRunShowsTheDefaults) {
    EXPECT_EQ(frmPrefs->Slider1.Value(), 50);
    EXPECT_EQ(frmPrefs->Check1.Value(), 1);
    EXPECT_EQ(frmPrefs->Check2.Value(), 0);
    EXPECT_EQ(frmPrefs->Check3.Value(), 1);
    EXPECT_EQ(frmPrefs->Check4.Value(), 0);
    EXPECT_EQ(frmPrefs->Check5.Value(), 1);
    EXPECT_EQ(frmPrefs->Combo1.ListIndex(), 1);
    EXPECT_EQ(frmPrefs->Combo1.Text(), "5");
    EXPECT_EQ(frmPrefs->Combo2.ListIndex(), 0);
    EXPECT_EQ(frmPrefs->Combo2.Text(), "5");
}

TEST_F(PreferencesTest, ControlsCarryStoredValues) {
    Set({{"JPGsaveQuality", "75"}, {"ShowSplash", "0"}, {"Associate", "1"}, {"Clipmon", "0"}});
    Set({{"SavePrompt", "1"}, {"Undoredo", "0"}, {"MRUlist", "4"}, {"UndoSteps", "5"}});
    EXPECT_EQ(frmPrefs->Slider1.Value(), 75);
    EXPECT_EQ(frmPrefs->Check1.Value(), 0);
    EXPECT_EQ(frmPrefs->Check2.Value(), 1);
    EXPECT_EQ(frmPrefs->Check3.Value(), 0);
    EXPECT_EQ(frmPrefs->Check4.Value(), 1);
    EXPECT_EQ(frmPrefs->Check5.Value(), 0);
    EXPECT_EQ(frmPrefs->Combo1.Text(), "15");
    EXPECT_EQ(frmPrefs->Combo2.Text(), "30");
}

TEST_F(PreferencesTest, ListsOfferTheirNumbers) {
    std::vector<std::string> files, steps;
    for (int i = 0; i < frmPrefs->Combo1.ListCount(); ++i)
        files.push_back(frmPrefs->Combo1.List(i));
    for (int i = 0; i < frmPrefs->Combo2.ListCount(); ++i)
        steps.push_back(frmPrefs->Combo2.List(i));
    EXPECT_EQ(files, (std::vector<std::string>{"3", "5", "7", "10", "15"}));
    EXPECT_EQ(steps, (std::vector<std::string>{"5", "10", "15", "20", "25", "30"}));
    EXPECT_EQ(frmPrefs->Slider1.Min(), 10);
    EXPECT_EQ(frmPrefs->Slider1.Max(), 90);
}

TEST_F(PreferencesTest, TextsAreThoseOfTheTabs) {
    EXPECT_EQ(frmPrefs->Label1.Caption(), "Limitar a abertura em simultâneo a");
    EXPECT_EQ(frmPrefs->Label4.Caption(), "Imagens.");
    EXPECT_EQ(frmPrefs->Label5.Caption(), "Limitar o Refazer e Desfazer a");
    EXPECT_EQ(frmPrefs->Label6.Caption(), "passos.");
    EXPECT_EQ(frmPrefs->Label2.Caption(), "POUCA");
    EXPECT_EQ(frmPrefs->Label3.Caption(), "MUITA");
    EXPECT_EQ(frmPrefs->Command1.Caption(), "OK");
    EXPECT_EQ(frmPrefs->Command2.Caption(), "Cancelar");
    EXPECT_EQ(frmPrefs->SSTab1.Tab(), 0);
}

TEST_F(PreferencesTest, TabsAndTicksCarryTheirTexts) {
    Start();
    InPreferences([](QWidget& dialog) {
        const auto* tabs = dialog.findChild<QTabBar*>();
        ASSERT_NE(tabs, nullptr);
        ASSERT_EQ(tabs->count(), 3);
        EXPECT_EQ(tabs->tabText(0), "Geral");
        EXPECT_EQ(tabs->tabText(1), "Memória");
        EXPECT_EQ(tabs->tabText(2), "JPEG");
        const std::vector<std::pair<const char*, const char*>> ticks = {
            {"Check1", "Mostrar ecrã inicial no arranque"},
            {"Check2", "Associar o programa com ficheiros bmp, jpg e gif"},
            {"Check3", "Monitor da Area de Transferência no arranque"},
            {"Check4", "Não perguntar se pretende Salvar as alterações ao Sair"},
            {"Check5", "Refazer e desfazer ilimitado"}};
        for (const auto& [name, text] : ticks) {
            EXPECT_EQ(dynamic_cast<QAbstractButton*>(Find(dialog, name))->text(), text) << name;
        }
        EXPECT_EQ(dynamic_cast<QGroupBox*>(Find(dialog, "Frame1"))->title(), "JPEG Qualidade de Gravação");
        dialog.close();
    });
}

TEST_F(PreferencesTest, ArrowsMoveTheQualityByOneAndPagesByFive) {
    Start();
    InPreferences([](QWidget& dialog) {
        frmPrefs->SSTab1.Tab(2);
        QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
        QCoreApplication::sendEvent(&WidgetFor(frmPrefs->Slider1), &right);
        EXPECT_EQ(frmPrefs->Slider1.Value(), 51);
        QKeyEvent page(QEvent::KeyPress, Qt::Key_PageUp, Qt::NoModifier);
        QCoreApplication::sendEvent(&WidgetFor(frmPrefs->Slider1), &page);
        EXPECT_EQ(frmPrefs->Slider1.Value(), 56);
        EXPECT_EQ(frmPrefs->lblValue.Caption(), "56");
        dialog.close();
    });
}

TEST_F(PreferencesTest, TextThatIsNoNumberCountsAsTheDefault) {
    Set({{"MRUlist", "abc"}, {"ShowSplash", "abc"}, {"UndoSteps", "3x"}, {"JPGsaveQuality", ""}});
    EXPECT_EQ(frmPrefs->Combo1.Text(), "5");
    EXPECT_EQ(frmPrefs->Check1.Value(), 1);
    EXPECT_EQ(frmPrefs->Combo2.Text(), "5");
    EXPECT_EQ(frmPrefs->Slider1.Value(), 50);
}

TEST_F(PreferencesTest, BlanksAroundANumberDoNotMatter) {
    Set({{"MRUlist", " 3 "}, {"JPGsaveQuality", "7.2e1"}});
    EXPECT_EQ(frmPrefs->Combo1.Text(), "10");
    EXPECT_EQ(frmPrefs->Slider1.Value(), 72);
}

TEST_F(PreferencesTest, WordsOfTheViewsCountInAnyCaseAndGarbageAsTheDefault) {
    Set({{"Toolbar", "false"}, {"ColorBox", "TRUE"}, {"Rulers", "yes"}});
    EXPECT_FALSE(SettingWord("Toolbar", true));
    EXPECT_TRUE(SettingWord("ColorBox", false));
    EXPECT_TRUE(SettingWord("Rulers", true));
    EXPECT_FALSE(SettingWord("Rulers", false));
    EXPECT_TRUE(SettingWord("SettingsBar", true));
}

TEST_F(PreferencesTest, ANumberOutOfItsRangeCountsAsTheDefault) {
    Set({{"MainLeft", "0"}, {"MainTop", "-1e300"}, {"MainWidth", "nan"}});
    EXPECT_EQ(SettingNumber("MainLeft", 1000, -32768, 32767), 0);
    EXPECT_EQ(SettingNumber("MainTop", 1000, -32768, 32767), 1000);
    EXPECT_EQ(SettingNumber("MainWidth", 6500, 0, 32767), 6500);
    EXPECT_EQ(SettingNumber("MainHeight", 6500, 0, 32767), 6500);
}

TEST_F(PreferencesTest, APreferenceBeyondItsListCountsAsTheDefault) {
    struct Case {
        const char* key;
        int least, most, usual;
        std::function<double()> shown;
    };
    for (const Case& setting : {Case{"JPGsaveQuality", 10, 90, 50, [] { return frmPrefs->Slider1.Value(); }},
                                Case{"ShowSplash", 0, 1, 1, [] { return frmPrefs->Check1.Value(); }},
                                Case{"Associate", 0, 1, 0, [] { return frmPrefs->Check2.Value(); }},
                                Case{"Clipmon", 0, 1, 1, [] { return frmPrefs->Check3.Value(); }},
                                Case{"SavePrompt", 0, 1, 0, [] { return frmPrefs->Check4.Value(); }},
                                Case{"Undoredo", 0, 1, 1, [] { return frmPrefs->Check5.Value(); }},
                                Case{"MRUlist", 0, 4, 1, [] { return frmPrefs->Combo1.ListIndex(); }},
                                Case{"UndoSteps", 0, 5, 0, [] { return frmPrefs->Combo2.ListIndex(); }}}) {
        for (const int value : {setting.least - 1, setting.least, setting.most, setting.most + 1}) {
            Set({{setting.key, std::to_string(value)}});
            const bool legal = value >= setting.least && value <= setting.most;
            EXPECT_EQ(setting.shown(), legal ? value : setting.usual) << setting.key << ' ' << value;
            frmPrefs.Unload();
        }
    }
}

TEST_F(PreferencesTest, AStoreThatCannotBeWrittenIsToldOnceAndTheRunGoesOn) {
    Start();
    std::filesystem::remove_all(Folder("settings") + "/Pintalux64");
    PutBytes(Folder("settings") + "/Pintalux64", "no folder");
    const DialogScript script({[](QWidget&) {
                                   frmPrefs->Combo1.ListIndex(2);
                                   frmPrefs->Check4.Value(1);
                                   frmPrefs->Command1_Click();
                               },
                               PressesButton("OK")});
    Choose(frmMain->mnuFileSaveOptions);
    EXPECT_NE(script.Dialog(1).text.find("Não foi possível salvar as preferências."), std::string::npos);
    EXPECT_NE(script.Dialog(1).text.find(Folder("settings") + "/Pintalux64"), std::string::npos)
        << script.Dialog(1).text;
    EXPECT_EQ(MRUlimit, 7);
    EXPECT_FALSE(frmPrefs.Loaded());
    EXPECT_TRUE(frmMain.Loaded());
}

TEST_F(PreferencesTest, NumbersThatNoControlTakesCountAsTheDefaults) {
    Set({{"JPGsaveQuality", "abc"},
         {"ShowSplash", "7"},
         {"MRUlist", "99"},
         {"UndoSteps", "-5"},
         {"Clipmon", "1e9"}});
    EXPECT_EQ(frmPrefs->Slider1.Value(), 50);
    EXPECT_EQ(frmPrefs->Check1.Value(), 1);
    EXPECT_EQ(frmPrefs->Combo1.Text(), "5");
    EXPECT_EQ(frmPrefs->Combo2.Text(), "5");
    EXPECT_EQ(frmPrefs->Check3.Value(), 1);
}

TEST_F(PreferencesTest, GarbageInTheStoreGivesTheDefaults) {
    std::filesystem::create_directories(Folder("settings") + "/Pintalux64");
    std::string garbage("\0\xFF[[[=\n=\x01", 9);
    garbage.append(5000, 'x');
    PutBytes(Folder("settings") + "/Pintalux64/settings.ini", garbage);
    EXPECT_EQ(frmPrefs->Combo1.Text(), "5");
    EXPECT_EQ(frmPrefs->Slider1.Value(), 50);
}

TEST_F(PreferencesTest, TheTabKeyWalksThePageBeforeTheButtons) {
    frmPrefs->Show();
    std::vector<std::string> walked;
    const QWidget* start = &WidgetFor(frmPrefs->Check1);
    const QWidget* at = start;
    do {
        walked.push_back(at->objectName().toStdString());
        at = at->nextInFocusChain();
    } while (at != start);
    const auto place = [&](const char* name) {
        return std::find(walked.begin(), walked.end(), name) - walked.begin();
    };
    EXPECT_LT(place("Check1"), place("Check2"));
    EXPECT_LT(place("Check2"), place("Check4"));
    EXPECT_LT(place("Check4"), place("Combo1"));
    EXPECT_LT(place("Combo2"), place("Command1"));
    EXPECT_LT(place("Command1"), place("Command2"));
    EXPECT_LT(place("Command2"), static_cast<std::ptrdiff_t>(walked.size()));
}

TEST_F(PreferencesTest, UnlimitedUndoDisablesTheNumberOfSteps) {
    EXPECT_FALSE(frmPrefs->Combo2.Enabled());
    EXPECT_FALSE(frmPrefs->Label5.Enabled());
    EXPECT_FALSE(frmPrefs->Label6.Enabled());
    frmPrefs->Check5.Value(0);
    EXPECT_TRUE(frmPrefs->Combo2.Enabled());
    EXPECT_TRUE(frmPrefs->Label5.Enabled());
    EXPECT_TRUE(frmPrefs->Label6.Enabled());
}

TEST_F(PreferencesTest, TickingByHandDisablesTheNumberOfSteps) {
    SetSetting("Undoredo", "0");
    Start();
    InPreferences([](QWidget& dialog) {
        EXPECT_TRUE(frmPrefs->Combo2.Enabled());
        frmPrefs->SSTab1.Tab(1);
        Type(WidgetFor(frmPrefs->Check5), " ");
        EXPECT_FALSE(frmPrefs->Combo2.Enabled());
        dialog.close();
    });
}

TEST_F(PreferencesTest, OkWritesAllEightAsPlainNumbers) {
    Start();
    InPreferences([](QWidget&) {
        frmPrefs->Slider1.Value(72);
        frmPrefs->Check1.Value(0);
        frmPrefs->Check2.Value(1);
        frmPrefs->Check3.Value(0);
        frmPrefs->Check4.Value(1);
        frmPrefs->Check5.Value(0);
        frmPrefs->Combo1.ListIndex(2);
        frmPrefs->Combo2.ListIndex(3);
        ClickWidget(WidgetFor(frmPrefs->Command1));
    });
    EXPECT_EQ(StoredSetting("JPGsaveQuality"), "72");
    EXPECT_EQ(StoredSetting("ShowSplash"), "0");
    EXPECT_EQ(StoredSetting("Associate"), "1");
    EXPECT_EQ(StoredSetting("Clipmon"), "0");
    EXPECT_EQ(StoredSetting("SavePrompt"), "1");
    EXPECT_EQ(StoredSetting("Undoredo"), "0");
    EXPECT_EQ(StoredSetting("MRUlist"), "2");
    EXPECT_EQ(StoredSetting("UndoSteps"), "3");
    EXPECT_EQ(MRUlimit, 7);
}

TEST_F(PreferencesTest, UntickingTheAssociationWritesA0) {
    SetSetting("Associate", "1");
    Start();
    InPreferences([](QWidget&) {
        frmPrefs->Check2.Value(0);
        frmPrefs->Command1_Click();
    });
    EXPECT_EQ(StoredSetting("Associate"), "0");
}

TEST_F(PreferencesTest, CancelWritesNothingAndTheStoredValuesReturn) {
    Start();
    InPreferences([](QWidget&) {
        frmPrefs->Check4.Value(1);
        frmPrefs->Slider1.Value(11);
        ClickWidget(WidgetFor(frmPrefs->Command2));
    });
    EXPECT_EQ(StoredSetting("SavePrompt"), "(none)");
    EXPECT_EQ(frmPrefs->Check4.Value(), 0);
    EXPECT_EQ(frmPrefs->Slider1.Value(), 50);
    EXPECT_EQ(MRUlimit, 5);
}

TEST_F(PreferencesTest, EscapeCancels) {
    Start();
    InPreferences([](QWidget& dialog) {
        frmPrefs->Check4.Value(1);
        Type(dialog, "\x1b");
    });
    EXPECT_EQ(StoredSetting("SavePrompt"), "(none)");
}

TEST_F(PreferencesTest, AChangeOfMonitorAndSplashActsAtTheNextStartOnly) {
    SetSetting("ShowSplash", "0");
    Start();
    ASSERT_TRUE(frmMain->mnuEditClip.Checked());
    InPreferences([](QWidget&) {
        frmPrefs->Check1.Value(1);
        frmPrefs->Check3.Value(0);
        frmPrefs->Command1_Click();
    });
    EXPECT_TRUE(frmMain->mnuEditClip.Checked());
    EXPECT_FALSE(frmSplash.Loaded());
}

TEST_F(PreferencesTest, EveryControlFitsInsideItsPage) {
    Start();
    InPreferences([](QWidget& dialog) {
        for (int page = 0; page < 3; ++page) {
            frmPrefs->SSTab1.Tab(page);
            PassEvents();
            for (const QWidget* control : dialog.findChildren<QWidget*>()) {
                if (!control->isVisible() || control->objectName().isEmpty() || control == &dialog) continue;
                const QRect parent = control->parentWidget()->rect();
                EXPECT_TRUE(parent.contains(control->geometry())) << control->objectName().toStdString();
            }
        }
        dialog.close();
    });
}

} // namespace pintalux
