// Every way in which the program writes, with each of its file operations failing in turn: the old file is
// whole or the new one is, the documents are as they were, and the user has been told.
//
// A way is counted through until a run meets no fault any more, so that operations that are added to it are
// tested without a word here.
#include "support/DialogAnswers.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "devices/PrintCommands.h"
#include "document/Globals.h"
#include "document/Recovery.h"
#include "document/States.h"
#include "document/UndoCommands.h"
#include "files/FileNames.h"
#include "settings/frmPrefs.h"
#include "settings/ModAssoc.h"
#include "surface/system/App.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Folders.h"
#include "surface/system/Pictures.h"
#include "surface/system/Printer.h"
#include "surface/window/Events.h"

#include <cerrno>
#include <QMessageBox>
#include <QWidget>

namespace pintalux {
namespace {

using Contents = std::vector<std::string>;

/// One way of writing. Each run begins with the old files.
struct Way {
    std::function<void()> prepare;
    std::function<void()> write;
    std::function<Contents()> files; ///< What stands in the files now, each one whole or not.
    bool told = true;                ///< Whether the user hears of what was not written.
    bool triesAgain = false;         ///< Whether what a disk refused is written as soon as it takes files.
    std::string chosen = {};         ///< What is chosen in a file dialog; it is left where this is empty.
};

struct Fault {
    const char* name;
    int errnoValue;
    bool shortWrite;
    bool harmless; ///< The operation is made again, and all is well.
};
constexpr Fault kFaults[] = {{"no room", ENOSPC, false, false},
                             {"broken disk", EIO, false, false},
                             {"no right", EACCES, false, false},
                             {"a signal", EINTR, false, true},
                             {"a short write and no room", ENOSPC, true, false},
                             {"a short write", 0, true, true}};

void Order(const Fault& fault, int n) {
    if (fault.shortWrite) {
        ShortenFileWrite(n, fault.errnoValue);
    } else {
        FailFileOperation(n, fault.errnoValue);
    }
}

// Chooses a file and agrees to its being replaced; whatever else comes tells the user something.
void Answer(QWidget& dialog, const std::string& chosen, int& said) {
    const auto* box = dynamic_cast<QMessageBox*>(&dialog);
    if (box != nullptr && box->text().contains("já existe")) return PressButton(dialog, "Sim");
    if (box == nullptr && !chosen.empty()) return ChoosesFile(chosen)(dialog);
    ++said;
    if (box != nullptr) return PressButton(dialog, "OK");
    dialog.close();
}

class FaultTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        setenv("XDG_DATA_HOME", Folder("program").c_str(), 1);
        setenv("XDG_DATA_DIRS", Folder("program").c_str(), 1);
        Start();
        frmMain->Timer1.Enabled(false); // The poll's own file operations would be counted.
        // An error that no question for a file should give ends the program, with a message that names what
        // is kept; here it ends the command.
        EndProgram = [this](const std::string&, const std::string&) {
            ended_ = true;
            throw RuntimeError(kDeviceError);
        };
    }
    void TearDown() override {
        FailFileOperation(0, 0);
        unsetenv("XDG_DATA_HOME");
        unsetenv("XDG_DATA_DIRS");
        ProgramTest::TearDown();
        EndRun();
    }
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }

    void ExpectNoHalfFile(const Way& way) {
        const Contents before = Prepared(way);
        {
            int said = 0;
            const DialogAnswers answers([&](QWidget& dialog) { Answer(dialog, way.chosen, said); });
            way.write();
            States().Settle();
            EXPECT_EQ(said, 0);
        }
        const Contents after = way.files();
        ASSERT_NE(before, after) << "nothing was written";
        const auto names = Names();
        int runs = 0;
        for (const Fault& fault : kFaults) {
            int n = 1;
            while (!HasFailure() && Meets(way, fault, n, before, after))
                ++n;
            EXPECT_GT(n, 1) << fault.name << ": nothing was met";
            runs += n;
            EXPECT_EQ(Names(), names) << fault.name << ": something was left over";
        }
        RecordProperty("runs", runs);
        EXPECT_GT(runs, 10);
    }

  private:
    bool ended_ = false;

    Contents Prepared(const Way& way) {
        States().Settle();
        way.prepare();
        States().Settle();
        return way.files();
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const char* folder : {"pictures", "program", "settings"}) {
            for (const std::string& name : NamesIn(Folder(folder)))
                if (!name.starts_with("Qt")) names.push_back(name); // the toolkit keeps its own
        }
        return names;
    }
    /// One run with the n-th operation failing; false once there are fewer operations.
    bool Meets(const Way& way, const Fault& fault, int n, const Contents& before, const Contents& after) {
        Prepared(way);
        bool met = false;
        ended_ = false;
        int said = 0;
        {
            const DialogAnswers answers([&](QWidget& dialog) { Answer(dialog, way.chosen, said); });
            Order(fault, n);
            way.write();
            States().Settle();
            met = FileFaultMet();
            FailFileOperation(0, 0);
            said += static_cast<int>(untrapped.size());
        }
        untrapped.clear();
        if (way.triesAgain) {
            SaveSomeState();
            States().Settle();
        }
        const Contents now = way.files();
        SCOPED_TRACE(std::string(fault.name) + " at operation " + std::to_string(n));
        EXPECT_EQ(now.size(), before.size());
        bool written = true;
        for (std::size_t i = 0; i < now.size(); ++i) {
            EXPECT_TRUE(now[i] == before[i] || now[i] == after[i])
                << "a half file: " << now[i].substr(0, 200);
            written = written && now[i] == after[i];
        }
        if (!met || fault.harmless || way.triesAgain) {
            EXPECT_TRUE(written);
            EXPECT_EQ(said, 0);
        } else if (!written && !ended_) {
            EXPECT_EQ(said > 0, way.told);
        }
        return met;
    }
    /// A state that the disk takes.
    void SaveSomeState() const {
        const std::string path = Folder("temporary") + "/BIFFFF.tmp";
        PutBytes(path, "");
        States().SaveBehind(Solid(2, 2, kBlack), path);
        States().Settle();
        States().Forget(path);
    }
};

TEST_F(FaultTest, ABmp) {
    frmImage& image = OpenPicture("a.bmp", RandomPicture(40, 30, 1));
    const std::string old = BytesOf(File("a.bmp"));
    Edit(image, kBlack);
    ExpectNoHalfFile({[&] {
                          PutBytes(File("a.bmp"), old);
                          image.alreadysaved = false;
                      },
                      [] { Choose(frmMain->mnuFileSave); },
                      [&] {
                          EXPECT_EQ(static_cast<bool>(image.alreadysaved), BytesOf(File("a.bmp")) != old);
                          EXPECT_EQ(CornerOf(image), kBlack);
                          return Contents{BytesOf(File("a.bmp"))};
                      }});
    EXPECT_EQ(ImageCount, 1);
}

TEST_F(FaultTest, ANewNameForABmp) {
    frmImage& image = OpenPicture("a.bmp", RandomPicture(40, 30, 1));
    const std::string old = BytesOf(File("a.bmp"));
    Edit(image, kBlack);
    const std::string chosen = File("b.bmp");
    ExpectNoHalfFile({[&] {
                          PutBytes(chosen, old);
                          image.alreadysaved = false;
                          image.AFCurfile = "other.bmp";
                      },
                      [] { Choose(frmMain->mnuFileSaveAs); },
                      [&] {
                          EXPECT_EQ(CornerOf(image), kBlack);
                          return Contents{BytesOf(chosen)};
                      },
                      true, false, chosen});
}

TEST_F(FaultTest, AJpeg) {
    frmImage& image = OpenPicture("u.bmp", RandomPicture(40, 30, 1));
    image.AFCurfile = File("a.jpg");
    ExpectNoHalfFile({[&] {
                          PutBytes(File("a.jpg"), "old");
                          image.alreadysaved = false;
                      },
                      [] { Choose(frmMain->mnuFileSave); },
                      [&] {
                          EXPECT_EQ(static_cast<bool>(image.alreadysaved), BytesOf(File("a.jpg")) != "old");
                          return Contents{BytesOf(File("a.jpg"))};
                      }});
    EXPECT_EQ(ImageCount, 1);
}

// A state that a disk refuses stays in memory, and is written as soon as the disk takes files again: the user
// loses nothing and is told nothing.
TEST_F(FaultTest, AState) {
    frmImage& image = OpenPicture("a.bmp", Solid(40, 30, kWhite));
    const auto walkBack = [&] {
        mnuEditUndo_Click();
        ExpectSamePixels(ImageOf(image), Solid(40, 30, kWhite));
        mnuEditRedo_Click();
        ExpectSamePixels(ImageOf(image), Solid(40, 30, kBlack));
    };
    const auto states = [&] { return image.ListBUorder.ListCount(); };
    ExpectNoHalfFile({[&] {
                          while (states() > 1) {
                              ForgetState(image.ListBackup.List(image.ListBackup.ListCount() - 1));
                              image.ListBackup.RemoveItem(image.ListBackup.ListCount() - 1);
                              image.ListBUorder.RemoveItem(states() - 1);
                          }
                          image.ListBUorder.ListIndex(0);
                          image.PicMerge.LineBF(0, 0, 40, 30, kWhite);
                      },
                      [&] { Edit(image, kBlack); },
                      [&] {
                          if (states() == 1) return Contents{""};
                          walkBack();
                          return Contents{BytesOf(image.ListBackup.List(1))};
                      },
                      false, true});
}

TEST_F(FaultTest, TheIndexOfTheRun) {
    BeginRun();
    frmImage& image = OpenPicture("a.bmp", Solid(40, 30, kWhite));
    const auto index = [] { return ReadIndexFile(RunIndices().at(0)).value_or(std::vector<RunDocument>{}); };
    ExpectNoHalfFile({[&] {
                          image.Caption("antes");
                          NoteDocuments();
                      },
                      [&] {
                          image.Caption("depois");
                          NoteDocuments();
                      },
                      [&] {
                          const std::vector<RunDocument> documents = index();
                          return Contents{documents.size() == 1 ? documents[0].caption : "broken"};
                      },
                      false, true});
}

TEST_F(FaultTest, ThePreferences) {
    const std::string file = SettingsFolder() + "/settings.ini";
    SetSetting("SavePrompt", "0");
    const std::string old = BytesOf(file);
    ExpectNoHalfFile({[&] { PutBytes(file, old); },
                      [] {
                          frmPrefs->Slider1.Value(77);
                          RunEvent(EventKind::Ordinary, frmPrefs->Command1.Click);
                      },
                      [&] { return Contents{BytesOf(file)}; }});
}

// Who leaves can do nothing about it.
TEST_F(FaultTest, TheViewsAtTheExit) {
    const std::string file = SettingsFolder() + "/settings.ini";
    SetSetting("Rulers", "other");
    const std::string old = BytesOf(file);
    ExpectNoHalfFile({[&] {
                          if (!frmMain.Loaded()) Start();
                          frmMain->Timer1.Enabled(false);
                          *frmPrefs;
                          PutBytes(file, old);
                      },
                      [] { EXPECT_TRUE(frmMain.Unload()); }, [&] { return Contents{BytesOf(file)}; }, false});
    EndEventLoop();
}

// The list of recent files is kept where it can be, and no picture is refused because of it.
TEST_F(FaultTest, TheRecentFiles) {
    const std::string file = SettingsFolder() + "/machine.ini";
    for (const char* name : {"a.bmp", "b.bmp"})
        OpenPicture(name, Solid(4, 4, kWhite)).Unload();
    const std::string old = BytesOf(file);
    ExpectNoHalfFile({[&] {
                          PutBytes(file, old);
                          AllocateMRUs();
                          LoadMRUs(frmMain->mnuFileMRU, frmMain->mnuFileBar5);
                      },
                      [&] { UpdateMRUs(frmMain->mnuFileMRU, frmMain->mnuFileBar5, File("new.bmp")); },
                      [&] { return Contents{BytesOf(file)}; }, false});
}

TEST_F(FaultTest, AColourCollection) {
    const std::string file = File("cores.klc");
    frmMain->TheColor.BackColor(0x123456);
    frmMain->loadselected();
    ExpectNoHalfFile({[&] { PutBytes(file, "[Colors]\r\n0= 1\r\n"); },
                      [] { RunEvent(EventKind::Ordinary, [] { frmMain->SaveColors(); }); },
                      [&] { return Contents{BytesOf(file)}; }, true, false, file});
}

// An association is the desktop's affair: what cannot be entered there is not spoken of.
TEST_F(FaultTest, AnAssociation) {
    const std::string list = Folder("settings") + "/mimeapps.list";
    const std::string entry = Folder("program") + "/applications/pintalux64.desktop";
    std::filesystem::create_directories(Folder("program") + "/applications");
    ExpectNoHalfFile({[&] {
                          PutBytes(list, "[Default Applications]\nimage/bmp=other.desktop;\n");
                          setenv("XDG_DATA_DIRS", "/nowhere", 1);
                          PutBytes(entry, "old");
                      },
                      [] { RegisterExtension("/usr/bin/pintalux64", ".bmp"); },
                      [&] {
                          return Contents{BytesOf(list), BytesOf(entry)};
                      },
                      false});
}

TEST_F(FaultTest, APageInAFile) {
    OpenPicture("a.bmp", RandomPicture(40, 30, 1));
    const std::string file = File("page.pdf");
    // Its date and its number are another each time.
    const auto kind = [&] {
        const std::string bytes = BytesOf(file);
        const bool whole = bytes.starts_with("%PDF") && bytes.find("%%EOF") != std::string::npos;
        return Contents{whole ? "a page" : bytes};
    };
    const auto prepare = [&] {
        Printer().PrintToFileForTests(file); // a page that was printed has named the next one
        PutBytes(file, "old");
    };
    ExpectNoHalfFile({prepare, [] { Choose(frmMain->mnuFilePrinterPrint); }, kind});
}

} // namespace
} // namespace pintalux
