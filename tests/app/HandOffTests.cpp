#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/OrdinaryUser.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/Globals.h"
#include "imageops/frmAddBord.h"
#include "imageops/frmFiltBrow.h"
#include "imageops/frmResize.h"
#include "surface/system/App.h"
#include "surface/system/Clipboard.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <optional>
#include <QWidget>
#include <sys/file.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace {

// What happens as soon as this thread has put another file at this place.
const std::thread::id tests = std::this_thread::get_id();
std::string watchedPlace;
std::function<void()> onceItStands;

} // namespace

// The call of the system library stands here once more, and so comes first.
int rename(const char* from, const char* to) noexcept {
    const long result = ::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0U);
    if (result == 0 && std::this_thread::get_id() == tests && watchedPlace == to) onceItStands();
    return static_cast<int>(result);
}

namespace pintalux {

namespace {

class HandOffTest : public ProgramTest {
  protected:
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }
    static frmImage& Image() { return static_cast<frmImage&>(*frmMain->ActiveForm()); }
    // What a second instance leaves; passes when the running one has taken it away.
    void HandOver(const std::string& text) {
        PutBytes(HandOffFile(), text);
        ASSERT_TRUE(WaitFor([] { return !std::filesystem::exists(HandOffFile()); }));
    }
};

/// A running instance: holds the lock of the program's folder.
class RunningInstance {
  public:
    explicit RunningInstance(const std::string& folder)
        : descriptor_(::open((folder + "/pintalux64.lock").c_str(), O_RDWR | O_CREAT, 0600)) {
        EXPECT_EQ(::flock(descriptor_, LOCK_EX | LOCK_NB), 0);
    }
    ~RunningInstance() { ::close(descriptor_); }
    RunningInstance(const RunningInstance&) = delete;
    RunningInstance& operator=(const RunningInstance&) = delete;

  private:
    int descriptor_;
};

} // namespace

TEST_F(HandOffTest, TheFileLiesWhereAllInstancesOfTheUserMeet) {
    App.PathForTests("");
    const std::string folder = Folder("settings"); // any of the user's own
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
    setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    EXPECT_EQ(HandOffFile(), folder + "/KLdde.tmp");
}

TEST_F(HandOffTest, OnlyTheInstanceThatHoldsTheLockTakesIt) {
    SavePicture(Solid(4, 4, kBlack), File("a.bmp"));
    {
        const RunningInstance first(Folder("program"));
        Start();
        PutBytes(HandOffFile(), File("a.bmp") + "\n");
        for (int tick = 0; tick < 3; ++tick)
            frmMain->Timer1_Timer();
        EXPECT_TRUE(std::filesystem::exists(HandOffFile()));
        EXPECT_EQ(ImageCount, 0);
    }
    frmMain->Timer1_Timer(); // the first one has ended
    EXPECT_FALSE(std::filesystem::exists(HandOffFile()));
    EXPECT_EQ(ImageCount, 1);
}

TEST_F(HandOffTest, ARequestThatCannotBeWrittenOpensHere) {
    const RunningInstance running(Folder("program"));
    SavePicture(Solid(4, 4, kBlack), File("a.bmp"));
    std::filesystem::create_directory(HandOffFile());
    const DialogScript nothingIsSaid;
    StartWhole(File("a.bmp"));
    EXPECT_FALSE(frmMain->HandedOver());
    ASSERT_TRUE(WaitFor([] { return ImageCount == 1; }));
    EXPECT_EQ(Image().Caption(), "a.bmp");
}

TEST_F(HandOffTest, ARequestThatNobodyIsLeftToTakeOpensHereAndOnce) {
    auto running = std::make_optional<RunningInstance>(Folder("program"));
    SavePicture(Solid(4, 4, kBlack), File("a.bmp"));
    watchedPlace = HandOffFile();
    onceItStands = [&running] { running.reset(); };
    StartWhole(File("a.bmp"));
    watchedPlace.clear();
    EXPECT_FALSE(running);
    EXPECT_FALSE(frmMain->HandedOver());
    EXPECT_FALSE(std::filesystem::exists(HandOffFile()));
    ASSERT_TRUE(WaitFor([] { return ImageCount > 0; }));
    for (int tick = 0; tick < 3; ++tick)
        frmMain->Timer1_Timer();
    EXPECT_EQ(ImageCount, 1);
    EXPECT_EQ(Image().Caption(), "a.bmp");
}

TEST_F(HandOffTest, AFileHandedOverOpensAndTheHandOffGoes) {
    Start();
    SavePicture(RandomPicture(20, 10, 1), File("sol e mar.bmp"));
    HandOver(File("sol e mar.bmp") + "\n");
    ASSERT_EQ(ImageCount, 1);
    EXPECT_EQ(Image().Caption(), "sol e mar.bmp");
    EXPECT_EQ(Image().AFCurfile, File("sol e mar.bmp"));
    EXPECT_EQ(Image().ListBUorder.ListCount(), 1);
    EXPECT_EQ(frmMain->mnuFileMRU(0).Caption(), "sol e mar.bmp");
    ExpectSamePixels(ImageOf(Image()), RandomPicture(20, 10, 1));
    EXPECT_FALSE(ScreenLocked());
}

TEST_F(HandOffTest, AFileHandedOverDuringTheStartOpensAfterTheOneOfTheStart) {
    SavePicture(Solid(4, 4, kBlack), File("first.bmp"));
    SavePicture(Solid(6, 6, kBlack), File("second.bmp"));
    App.CommandForTests(File("first.bmp"));
    PutBytes(HandOffFile(), File("second.bmp") + "\n");
    frmMain->Timer1_Timer(); // the window is there, the fifth tick of the start is still to come
    EXPECT_EQ(ImageCount, 0);
    ASSERT_TRUE(WaitFor([] { return ImageCount == 2; }));
    EXPECT_EQ(Image().Caption(), "second.bmp");
}

TEST_F(HandOffTest, ARefusedPictureHandedToAnEmptyProgramIsWindowNumber1) {
    Start();
    PutBytes(File("a.bmp"), "garbage");
    const DialogScript nothingIsSaid;
    HandOver(File("a.bmp") + "\n");
    ASSERT_EQ(ImageCount, 1);
    EXPECT_EQ(Image().Caption(), "Imagem 1");
    WaitFor([] { return false; }, 100);
    EXPECT_EQ(ImageCount, 1); // tried once
    LockWindowUpdate(nullptr);
}

TEST_F(HandOffTest, AFileInAClosedFolderIsDroppedWithoutAWord) {
    Start();
    std::filesystem::create_directory(File("closed"));
    PutBytes(File("closed/a.bmp"), "x");
    std::filesystem::permissions(File("closed"), std::filesystem::perms(0));
    std::filesystem::permissions(Folder("program"), std::filesystem::perms(0777));
    const DialogScript nothingIsSaid;
    {
        const OrdinaryUser user;
        HandOver(File("closed/a.bmp") + "\n");
    }
    EXPECT_EQ(ImageCount, 0);
    EXPECT_TRUE(frmMain.Loaded());
    std::filesystem::permissions(File("closed"), std::filesystem::perms(0755));
}

TEST_F(HandOffTest, AnErrorOfTheDiskAtThePollEndsNothing) {
    Start();
    const DialogScript nothingIsSaid;
    FailFileOperation(1, EIO);
    EXPECT_TRUE(WaitFor([] { return FileOperationCount() > 2; }));
    EXPECT_TRUE(frmMain.Loaded());
}

TEST_F(HandOffTest, ItOpensBesideWhatIsThere) {
    Start();
    NewDocument(10, 10);
    SavePicture(Solid(4, 4, kBlack), File("a.bmp"));
    HandOver(File("a.bmp") + "\r\n");
    EXPECT_EQ(ImageCount, 2);
    EXPECT_EQ(Image().Caption(), "a.bmp");
}

TEST_F(HandOffTest, AQuotedPathComesOutBare) {
    Start();
    SavePicture(Solid(4, 4, kBlack), File("sol e mar.bmp"));
    HandOver("\"" + File("sol e mar.bmp") + "\"\n");
    EXPECT_EQ(ImageCount, 1);
}

TEST_F(HandOffTest, APathWithACommaLosesItAndIsNotFound) {
    Start();
    SavePicture(Solid(4, 4, kBlack), File("sol,mar.bmp"));
    const DialogScript nothingIsSaid;
    HandOver(File("sol,mar.bmp") + "\n");
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(HandOffTest, AMissingFileIsDroppedWithoutAWord) {
    Start();
    const DialogScript nothingIsSaid;
    HandOver(File("gone.bmp") + "\n");
    HandOver("");
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(HandOffTest, GarbageIsRemovedAndNothingOpens) {
    Start();
    const DialogScript nothingIsSaid;
    HandOver(std::string("\0\x01\xFF\"", 4));
    HandOver(std::string(60000, 'x'));
    HandOver("/" + std::string(300, 'x') + "/a.bmp\n");
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(HandOffTest, AHundredMegabytesAreRemovedAndNothingOpens) {
    Start();
    PutBytes(File("big"), "x");
    std::filesystem::resize_file(File("big"), 100'000'000);
    std::filesystem::rename(File("big"), HandOffFile());
    const DialogScript nothingIsSaid;
    EXPECT_TRUE(WaitFor([] { return !std::filesystem::exists(HandOffFile()); }));
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(HandOffTest, ASecondInstanceHandsItsFileOverAndEnds) {
    const RunningInstance running(Folder("program"));
    SavePicture(Solid(4, 4, kBlack), File("sol e mar.bmp"));
    App.CommandForTests(File("sol e mar.bmp"));
    EXPECT_TRUE(frmMain->HandedOver());
    EXPECT_FALSE(frmMain->CommandFileGiven());
    EXPECT_FALSE(WidgetFor(*frmMain).isVisible());
    EXPECT_FALSE(frmMain->Timer1.Enabled());
    EXPECT_FALSE(frmMain->Timer2.Enabled());
    EXPECT_EQ(BytesOf(HandOffFile()), File("sol e mar.bmp") + "\n");
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(HandOffTest, ALaterRequestOverwritesTheEarlierOne) {
    const RunningInstance running(Folder("program"));
    PutBytes(HandOffFile(), "/a/much/longer/path/than/the/new/one.bmp\n");
    App.CommandForTests("b.bmp");
    EXPECT_TRUE(frmMain->HandedOver());
    EXPECT_EQ(BytesOf(HandOffFile()), "b.bmp\n");
}

TEST_F(HandOffTest, ASecondInstanceWithoutAFileIsASecondProgram) {
    const RunningInstance running(Folder("program"));
    Start();
    EXPECT_FALSE(frmMain->HandedOver());
    EXPECT_TRUE(frmMain->Timer1.Enabled());
    EXPECT_FALSE(std::filesystem::exists(HandOffFile()));
    EXPECT_TRUE(WidgetFor(*frmMain).isVisible());
}

// While a dialog of a command stands.

class HandOffAtADialogTest : public HandOffTest {
  protected:
    void TearDown() override {
        Clipboard.Clear();
        HandOffTest::TearDown();
    }
    /// A white document at 2:1 over which a pasted piece floats at 10, 6 of the image.
    frmImage& PastedDocument() {
        Start();
        frmImage& image = OpenPicture("a.bmp", Solid(60, 40, kWhite));
        Choose(frmMain->mnuZoomInX(1));
        Clipboard.SetData(Solid(8, 6, 0x202020));
        Choose(frmMain->mnuEditPaste);
        image.PicSelect.Move(20, 12, 16, 12);
        return image;
    }
    static Picture WithPiece(Colour colour) {
        Picture result = Solid(60, 40, kWhite);
        result.Copy(10, 6, Solid(8, 6, colour), {0, 0, 8, 6});
        return result;
    }
    /// Runs a command, has another picture handed over while its dialog stands, and goes on with the dialog.
    void Run(const MenuItem& command, const std::function<void()>& goOn) {
        SavePicture(Solid(30, 20, kBlack), File("b.bmp"));
        const DialogScript script({[&](QWidget&) {
            HandOver(File("b.bmp") + "\n");
            EXPECT_EQ(Image().Caption(), "b.bmp");
            goOn();
        }});
        Choose(command);
    }
    static void ExpectOtherUntouched(const frmImage& image) {
        EXPECT_EQ(&Image(), &image);
        ASSERT_EQ(frmMain->Children().size(), 2U);
        const auto& other = static_cast<const frmImage&>(*frmMain->Children().back());
        ExpectSamePixels(ImageOf(other), Solid(30, 20, kBlack));
        EXPECT_EQ(other.ListBUorder.ListCount(), 1);
    }
};

TEST_F(HandOffAtADialogTest, AFilterTakesThePieceItWasOpenedFor) {
    const frmImage& image = PastedDocument();
    Run(frmMain->mnuFiltBrow, [] {
        frmFiltBrow->FiltList.ListIndex(4); // inverts
        ClickWidget(WidgetFor(frmFiltBrow->cmdApply));
    });
    ExpectSamePixels(ImageOf(image), WithPiece(0xDFDFDF));
    EXPECT_FALSE(image.PicSelect.Visible());
    ExpectOtherUntouched(image);
}

TEST_F(HandOffAtADialogTest, ANewSizeIsThatOfTheDocumentItWasAskedFor) {
    const frmImage& image = PastedDocument();
    Run(frmMain->mnuResize, [] {
        frmResize->VSPXw.Value(frmResize->VSPXw.Max() - 120);
        ClickWidget(WidgetFor(frmResize->cmdOK));
    });
    Picture expected = Solid(120, 80, kWhite);
    expected.Copy(20, 12, Solid(16, 12, 0x202020), {0, 0, 16, 12});
    ExpectSamePixels(ImageOf(image), expected);
    EXPECT_FALSE(image.PicSelect.Visible());
    EXPECT_EQ(image.factor, 1);
    EXPECT_EQ(image.Image1.Width(), 120);
    ExpectOtherUntouched(image);
}

TEST_F(HandOffAtADialogTest, BordersGoAroundTheDocumentTheyWereAskedFor) {
    Start();
    const frmImage& image = OpenPicture("a.bmp", Solid(60, 40, kBlack));
    Run(frmMain->mnuAddBorders, [] { ClickWidget(WidgetFor(frmAddBord->cmdApply)); });
    EXPECT_EQ(ImageOf(image).Width(), 60);
    EXPECT_EQ(ImageOf(image).Height(), 41);
    ExpectOtherUntouched(image);
}

TEST_F(HandOffAtADialogTest, ASaveUnderAnotherNameWritesTheDocumentItWasAskedFor) {
    frmImage& image = PastedDocument();
    SavePicture(Solid(30, 20, kBlack), File("b.bmp"));
    const DialogScript script({[&](QWidget& dialog) {
        HandOver(File("b.bmp") + "\n");
        ChoosesFile(File("c.bmp"))(dialog);
    }});
    Choose(frmMain->mnuFileSaveAs);
    ExpectSamePixels(LoadPicture(File("c.bmp")), WithPiece(0x202020));
    EXPECT_EQ(image.AFCurfile, File("c.bmp"));
    EXPECT_TRUE(image.alreadysaved);
    EXPECT_EQ(Image().AFCurfile, File("b.bmp"));
}

} // namespace pintalux
