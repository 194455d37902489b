// Files that another program drops on the main window.
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/Globals.h"
#include "surface/system/Pictures.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <QWidget>

namespace pintalux {

namespace {

class DropTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }
    static frmImage& Document(std::size_t place) {
        return static_cast<frmImage&>(*frmMain->Children()[place]);
    }
    /// What a program would do with its files if it were asked: nothing, copy or move them.
    static Qt::DropAction Dropped(const QList<QUrl>& urls, Qt::DropAction proposed = Qt::CopyAction) {
        QMimeData data;
        data.setUrls(urls);
        QWidget& window = WidgetFor(*frmMain);
        const Qt::DropActions any = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(QPoint(100, 100), any, &data, Qt::LeftButton, Qt::NoModifier);
        enter.setDropAction(proposed);
        QCoreApplication::sendEvent(&window, &enter);
        if (!enter.isAccepted()) return Qt::IgnoreAction;
        QDropEvent drop(QPointF(100, 100), any, &data, Qt::LeftButton, Qt::NoModifier);
        drop.setDropAction(proposed);
        QCoreApplication::sendEvent(&window, &drop);
        EXPECT_TRUE(drop.isAccepted());
        return drop.dropAction();
    }
    QUrl Url(const std::string& name) const {
        return QUrl::fromLocalFile(QString::fromStdString(File(name)));
    }
};

} // namespace

TEST_F(DropTest, EachFileOpensInAWindowOfItsOwnInTheirOrder) {
    SavePicture(RandomPicture(9, 5, 3), File("um dois.bmp"));
    SavePicture(RandomPicture(7, 8, 4), File("ção#%.bmp"));
    EXPECT_EQ(Dropped({Url("um dois.bmp"), Url("ção#%.bmp")}), Qt::CopyAction);
    EXPECT_EQ(ImageCount, 0) << "the other program has its answer first";
    PassEvents();
    ASSERT_EQ(ImageCount, 2);
    ExpectSamePixels(ImageOf(Document(0)), RandomPicture(9, 5, 3));
    ExpectSamePixels(ImageOf(Document(1)), RandomPicture(7, 8, 4));
    EXPECT_EQ(Document(0).AFCurfile, File("um dois.bmp"));
    EXPECT_EQ(frmMain->ActiveForm(), &Document(1));
    EXPECT_EQ(frmMain->mnuFileMRU(0).Caption(), "ção#%.bmp");
    EXPECT_EQ(StateFileNames().size(), 2U);
}

TEST_F(DropTest, AFileIsNeverMoved) {
    SavePicture(Solid(4, 4, kBlack), File("a.bmp"));
    EXPECT_EQ(Dropped({Url("a.bmp")}, Qt::MoveAction), Qt::CopyAction);
    PassEvents();
    EXPECT_EQ(ImageCount, 1);
}

TEST_F(DropTest, AFileThatIsNoPictureLeavesAnEmptyWindowAsInFileOpen) {
    PutBytes(File("texto.txt"), "not a picture");
    SavePicture(Solid(4, 4, kBlack), File("a.bmp"));
    const DialogScript nothingIsSaid;
    Dropped({Url("texto.txt"), Url("missing.bmp"), Url("."), Url("a.bmp")});
    PassEvents();
    ASSERT_EQ(ImageCount, 4);
    EXPECT_EQ(Document(0).AFCurfile, "");
    EXPECT_EQ(Document(0).ListBackup.ListCount(), 0);
    ExpectSamePixels(ImageOf(Document(3)), Solid(4, 4, kBlack));
}

TEST_F(DropTest, WhatIsNoFileOfThisMachineIsRefused) {
    EXPECT_EQ(Dropped({}), Qt::IgnoreAction);
    EXPECT_EQ(Dropped({QUrl("https://example.org/a.bmp")}), Qt::IgnoreAction);
    PassEvents();
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(DropTest, NothingOpensBehindADialog) {
    SavePicture(Solid(4, 4, kBlack), File("a.bmp"));
    const DialogScript script({[&](QWidget& dialog) {
        EXPECT_EQ(Dropped({Url("a.bmp")}), Qt::IgnoreAction);
        dialog.close();
    }});
    Choose(frmMain->mnuFileSaveOptions);
    PassEvents();
    EXPECT_EQ(ImageCount, 0);
}

} // namespace pintalux
