#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/FileCommands.h"
#include "settings/frmPrefs.h"
#include "surface/system/CommonDialog.h"
#include "surface/system/Pictures.h"

#include <algorithm>
#include <filesystem>
#include <QImage>
#include <QLineEdit>
#include <QWidget>

namespace pintalux {

namespace {

class SaveTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }
    static frmImage& Image() { return static_cast<frmImage&>(*frmMain->ActiveForm()); }
    void OpenFile(const std::string& name) { OpenDocument(File(name)); }
    void MakeJpeg(const std::string& name, const Picture& picture) {
        SavePicture(picture, File("t.tmp"));
        BmpToJpeg(File("t.tmp"), File(name), 90);
        std::filesystem::remove(File("t.tmp"));
    }
    // Whether the BMP that a JPEG is made from still lies beside the program.
    bool BmpLeftOnTheWay() const {
        const std::vector<std::string> names = NamesIn(Folder("program"));
        return std::any_of(names.begin(), names.end(),
                           [](const auto& name) { return name.starts_with("klTmp"); });
    }
    void Save() { Choose(frmMain->mnuFileSave); }
    void SaveAs(const std::string& path, int filterIndex = 0) {
        const DialogScript script({ChoosesFile(path, filterIndex)});
        Choose(frmMain->mnuFileSaveAs);
        title = script.Dialog(0).title;
    }

    std::string title;
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(SaveTest, WithoutADocumentNothingIsAskedAndNothingSaved) {
    const DialogScript nothingIsAsked;
    EXPECT_EQ(mnuFileSaveAs_Click(), SaveResult::Failed);
}

TEST_F(SaveTest, ABmpIsWrittenOverItsFile) {
    frmImage& image = OpenPicture("a.bmp", Solid(20, 10, kWhite));
    Edit(image, 0x123456);
    ASSERT_FALSE(image.alreadysaved);
    Save();
    ExpectSamePixels(LoadPicture(File("a.bmp")), Solid(20, 10, 0x123456));
    EXPECT_TRUE(image.alreadysaved);
    EXPECT_EQ(image.AFCurfile, File("a.bmp"));
    EXPECT_EQ(NamesIn(Folder("pictures")), (Names{"a.bmp"}));
}

TEST_F(SaveTest, SavingLeavesHistoryAndRecentFiles) {
    frmImage& image = OpenPicture("a.bmp", Solid(20, 10, kWhite));
    OpenPicture("b.bmp", Solid(5, 5, kWhite));
    image.SetFocus();
    ASSERT_TRUE(WaitFor([&] { return frmMain->ActiveForm() == &image; }));
    Edit(image, kBlack);
    Save();
    EXPECT_EQ(EntriesOf(image.ListBUorder), (Names{"0", "1"}));
    EXPECT_EQ(image.ListBUorder.ListIndex(), 1);
    EXPECT_EQ(frmMain->mnuFileMRU(0).Caption(), "b.bmp");
}

TEST_F(SaveTest, AJpegIsWrittenAsJpegAndItsTemporaryBmpGoes) {
    MakeJpeg("a.jpg", Solid(32, 16, kWhite));
    OpenFile("a.jpg");
    Edit(Image(), kBlack);
    Save();
    EXPECT_TRUE(BytesOf(File("a.jpg")).starts_with("\xFF\xD8"));
    EXPECT_EQ(LoadPicture(File("a.jpg")).At(8, 8), 0U);
    EXPECT_TRUE(Image().alreadysaved);
    EXPECT_EQ(NamesIn(Folder("pictures")), (Names{"a.jpg"}));
    EXPECT_FALSE(BmpLeftOnTheWay());
}

TEST_F(SaveTest, JpgInCapitalsIsAJpegToo) {
    MakeJpeg("A.JPG", Solid(32, 16, kWhite));
    OpenFile("A.JPG");
    Edit(Image(), kBlack);
    Save();
    EXPECT_TRUE(BytesOf(File("A.JPG")).starts_with("\xFF\xD8"));
    EXPECT_EQ(NamesIn(Folder("pictures")), (Names{"A.JPG"}));
}

TEST_F(SaveTest, AnyOtherKindGoesToANumberedBmpBesideIt) {
    for (const char* name : {"a.jpeg", "b.gif", "c.bif"}) {
        MakeJpeg(name, Solid(32, 16, kWhite));
        const std::string before = BytesOf(File(name));
        OpenFile(name);
        Edit(Image(), kBlack);
        Save();
        Save();
        EXPECT_TRUE(BytesOf(File(name)) == before) << name;
        EXPECT_EQ(Image().AFCurfile, File(name));
        EXPECT_EQ(Image().Caption(), name);
        EXPECT_TRUE(Image().alreadysaved);
    }
    EXPECT_EQ(NamesIn(Folder("pictures")),
              (Names{"a.bmp", "a.jpeg", "a1.bmp", "b.bmp", "b.gif", "b1.bmp", "c.bif", "c.bmp", "c1.bmp"}));
    ExpectSamePixels(LoadPicture(File("b1.bmp")), Solid(32, 16, kBlack));
}

TEST_F(SaveTest, WhatWasReadFromPngWebpOrTiffGoesToABmpBesideItToo) {
    for (const char* format : {"png", "webp", "tiff"}) {
        const std::string name = std::string("a.") + format;
        QImage image(32, 16, QImage::Format_RGB32);
        image.fill(0x204060);
        ASSERT_TRUE(image.save(QString::fromStdString(File(name)), format, 100));
        const std::string before = BytesOf(File(name));
        OpenFile(name);
        ExpectSamePixels(ImageOf(Image()), Solid(32, 16, 0x604020));
        Edit(Image(), kBlack);
        Save();
        EXPECT_TRUE(BytesOf(File(name)) == before) << name;
        EXPECT_EQ(Image().AFCurfile, File(name));
        EXPECT_TRUE(Image().alreadysaved);
    }
    EXPECT_EQ(NamesIn(Folder("pictures")), (Names{"a.bmp", "a.png", "a.tiff", "a.webp", "a1.bmp", "a2.bmp"}));
    ExpectSamePixels(LoadPicture(File("a2.bmp")), Solid(32, 16, kBlack));
}

TEST_F(SaveTest, ADocumentNeverSavedAsksForItsName) {
    NewDocument(12, 8, 0x0000FF);
    const DialogScript script({ChoosesFile(File("nova.bmp"))});
    Save();
    EXPECT_EQ(script.Dialog(0).title, "Savar Como");
    ExpectSamePixels(LoadPicture(File("nova.bmp")), Solid(12, 8, 0x0000FF));
    EXPECT_EQ(Image().AFCurfile, File("nova.bmp"));
}

TEST_F(SaveTest, ADocumentWhoseFileWasDeletedAsksForItsName) {
    OpenPicture("a.bmp", Solid(20, 10, kWhite));
    std::filesystem::remove(File("a.bmp"));
    const DialogScript script({PressesButton("Cancelar")});
    Save();
    EXPECT_EQ(script.Count(), 1U);
    EXPECT_TRUE(NamesIn(Folder("pictures")).empty());
    EXPECT_FALSE(Image().alreadysaved);
}

TEST_F(SaveTest, SaveAsGivesTheDocumentItsNewFile) {
    frmImage& image = NewDocument(12, 8, 0x00FF00);
    SaveAs(File("minha praia.bmp"));
    EXPECT_EQ(title, "Savar Como");
    EXPECT_EQ(CommonDialog1.Filter, "Bitmap (*.bmp)|*.bmp|Jpeg (*.jpg)|*.jpg");
    EXPECT_EQ(image.AFCurfile, File("minha praia.bmp"));
    EXPECT_EQ(image.Caption(), "minha praia.bmp");
    EXPECT_TRUE(image.alreadysaved);
    EXPECT_EQ(frmMain->mnuFileMRU(0).Caption(), "minha praia.bmp");
    ExpectSamePixels(LoadPicture(File("minha praia.bmp")), Solid(12, 8, 0x00FF00));
}

TEST_F(SaveTest, TheBitmapFilterWritesABmpWhateverTheNameSays) {
    NewDocument(12, 8);
    SaveAs(File("a.jpg"), 1);
    EXPECT_EQ(NamesIn(Folder("pictures")), (Names{"a.bmp"}));
    EXPECT_TRUE(BytesOf(File("a.bmp")).starts_with("BM"));
    EXPECT_EQ(Image().Caption(), "a.bmp");
}

TEST_F(SaveTest, TheJpegFilterWritesAJpegWhateverTheNameSays) {
    NewDocument(12, 8);
    SaveAs(File("a.bmp"), 2);
    EXPECT_EQ(NamesIn(Folder("pictures")), (Names{"a.jpg"}));
    EXPECT_TRUE(BytesOf(File("a.jpg")).starts_with("\xFF\xD8"));
    EXPECT_EQ(Image().AFCurfile, File("a.jpg"));
    EXPECT_FALSE(BmpLeftOnTheWay());
}

TEST_F(SaveTest, EachSaveAsProposesTheBitmapFilterAgain) {
    NewDocument(12, 8);
    SaveAs(File("a"), 2);
    SaveAs(File("b"));
    EXPECT_EQ(NamesIn(Folder("pictures")), (Names{"a.jpg", "b.bmp"}));
}

TEST_F(SaveTest, ANameWithoutAPointGetsTheEndingOfItsFilter) {
    frmImage& image = NewDocument(12, 8);
    SaveAs(File("praia"));
    EXPECT_EQ(image.AFCurfile, File("praia.bmp"));
    EXPECT_EQ(image.Caption(), "praia.bmp");
    EXPECT_TRUE(image.alreadysaved);
    SaveAs(File("praia"), 2);
    EXPECT_EQ(image.AFCurfile, File("praia.jpg"));
    EXPECT_EQ(NamesIn(Folder("pictures")), (Names{"praia.bmp", "praia.jpg"}));
}

TEST_F(SaveTest, AnotherFileOfTheNameThatWillBeWrittenIsAskedFor) {
    PutBytes(File("red.bmp"), "old");
    frmImage& image = NewDocument(12, 8);
    const DialogScript script({ChoosesFile(File("red.jpg"), 1), PressesButton("Sim")});
    Choose(frmMain->mnuFileSaveAs);
    EXPECT_NE(script.Dialog(1).text.find("red.bmp já existe"), std::string::npos) << script.Dialog(1).text;
    EXPECT_EQ(image.AFCurfile, File("red.bmp"));
    ExpectSamePixels(LoadPicture(File("red.bmp")), Solid(12, 8, kWhite));
    EXPECT_EQ(NamesIn(Folder("pictures")), (Names{"red.bmp"}));
}

TEST_F(SaveTest, NoAtTheQuestionLeavesTheOldFileAndGoesBackToTheDialog) {
    PutBytes(File("red.bmp"), "old");
    frmImage& image = NewDocument(12, 8);
    const DialogScript script({[this](QWidget& dialog) {
                                   ChoosesFile(File("red.jpg"), 1)(dialog);
                                   EXPECT_TRUE(dialog.isVisible());
                                   PressButton(dialog, "Cancelar");
                               },
                               PressesButton("Não")});
    Choose(frmMain->mnuFileSaveAs);
    EXPECT_EQ(BytesOf(File("red.bmp")), "old");
    EXPECT_EQ(image.AFCurfile, "");
    EXPECT_FALSE(image.alreadysaved);
}

TEST_F(SaveTest, TheDialogProposesTheActiveDocument) {
    frmImage& first = OpenPicture("praia.gif", Solid(4, 3, kWhite));
    OpenPicture("outra.bmp", Solid(5, 3, kWhite));
    const auto proposed = [] {
        std::string name;
        const DialogScript script({[&](QWidget& dialog) {
            name = dialog.findChild<QLineEdit*>("fileNameEdit")->text().toStdString();
            dialog.close();
        }});
        Choose(frmMain->mnuFileSaveAs);
        return name;
    };
    EXPECT_EQ(proposed(), "outra.bmp");
    first.Show();
    ASSERT_EQ(frmMain->ActiveForm(), &first);
    EXPECT_EQ(proposed(), "praia.bmp");
    NewDocument(12, 8);
    EXPECT_EQ(proposed(), "Imagem 3.bmp");
}

TEST_F(SaveTest, ANameOfAFolderWithAPointIsNoExtension) {
    std::filesystem::create_directory(File("fotos.2024"));
    SavePicture(Solid(5, 5, kWhite), File("fotos.2024/praia"));
    OpenFile("fotos.2024/praia");
    Edit(Image(), kBlack);
    const DialogScript script({PressesButton("Salvar")});
    Save();
    EXPECT_EQ(script.Dialog(0).title, "Savar Como");
    EXPECT_EQ(Image().AFCurfile, File("fotos.2024/praia.bmp"));
    EXPECT_EQ(NamesIn(Folder("pictures")), (Names{"fotos.2024"}));
    EXPECT_EQ(NamesIn(File("fotos.2024")), (Names{"praia", "praia.bmp"}));
    ExpectSamePixels(LoadPicture(File("fotos.2024/praia")), Solid(5, 5, kWhite));
}

TEST_F(SaveTest, ACancelledSaveAsChangesNothing) {
    frmImage& image = OpenPicture("a.bmp", Solid(20, 10, kWhite));
    const std::string before = BytesOf(File("a.bmp"));
    Edit(image, kBlack);
    const DialogScript script({PressesEscape()});
    Choose(frmMain->mnuFileSaveAs);
    EXPECT_TRUE(BytesOf(File("a.bmp")) == before);
    EXPECT_FALSE(image.alreadysaved);
}

TEST_F(SaveTest, TheQualityIsReadAtEachSave) {
    MakeJpeg("a.jpg", RandomPicture(120, 90, 1));
    OpenFile("a.jpg");
    SetSetting("JPGsaveQuality", "10");
    Save();
    const std::size_t small = BytesOf(File("a.jpg")).size();
    frmPrefs->Slider1.Value(90);
    frmPrefs->Command1_Click();
    Save();
    EXPECT_GT(BytesOf(File("a.jpg")).size(), 2 * small);
}

TEST_F(SaveTest, AQualityThatIsNoneCountsAsTheDefault) {
    MakeJpeg("a.jpg", RandomPicture(120, 90, 1));
    OpenFile("a.jpg");
    SetSetting("JPGsaveQuality", "50");
    Save();
    const std::string at50 = BytesOf(File("a.jpg"));
    SetSetting("JPGsaveQuality", "1e9");
    Save();
    EXPECT_TRUE(BytesOf(File("a.jpg")) == at50);
}

TEST_F(SaveTest, AFailureOfTheJpegWriterIsTold) {
    frmImage& image = NewDocument(12, 8);
    std::filesystem::create_directory(File("a.jpg"));
    image.AFCurfile = File("a.jpg");
    const DialogScript script({PressesButton("OK")});
    Save();
    EXPECT_NE(script.Dialog(0).text.find(File("a.jpg") + " (é uma pasta)"), std::string::npos)
        << script.Dialog(0).text;
    EXPECT_EQ(script.Dialog(0).title, "VALMERO Multimédia");
    EXPECT_TRUE(std::filesystem::is_directory(File("a.jpg")));
    EXPECT_EQ(NamesIn(Folder("pictures")), (Names{"a.jpg"}));
    EXPECT_FALSE(image.alreadysaved);
}

TEST_F(SaveTest, TheSaveButtonDoesTheSame) {
    frmImage& image = OpenPicture("a.bmp", Solid(20, 10, kWhite));
    Edit(image, kBlack);
    frmMain->TB2_ButtonClick(frmMain->TB2.Buttons("Save"));
    EXPECT_TRUE(image.alreadysaved);
    ExpectSamePixels(LoadPicture(File("a.bmp")), Solid(20, 10, kBlack));
}

} // namespace pintalux
