// The filter browser: what it shows, the sample, the ways out of it.
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/Globals.h"
#include "imageops/frmFiltBrow.h"
#include "surface/window/ProgressBar.h"

#include <algorithm>
#include <QAbstractButton>
#include <QApplication>
#include <QListWidget>
#include <QTimer>
#include <tuple>
#include <utility>

namespace pintalux {
namespace {

// Red 200, green 100, blue 50. The split lifts green to 101.
constexpr Colour kFlat = 0x3264C8;

void PressApply() {
    ClickWidget(WidgetFor(frmFiltBrow->cmdApply));
}
void PressCancel() {
    ClickWidget(WidgetFor(frmFiltBrow->cmdCancel));
}
void PressPreview() {
    ClickWidget(WidgetFor(frmFiltBrow->Command1));
}

class FilterBrowserTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
    // The filter browser from the menu, with this done in it. Leaves by "Cancelar" if the act did not.
    static void InBrowser(const std::function<void()>& act) {
        const DialogScript script({[&](QWidget&) {
            act();
            if (frmFiltBrow.Loaded()) PressCancel();
        }});
        Choose(frmMain->mnuFiltBrow);
        EXPECT_FALSE(frmFiltBrow.Loaded());
    }
    static void Apply(int index, int level) {
        InBrowser([=] {
            frmFiltBrow->FiltList.ListIndex(index);
            if (frmFiltBrow->Slider1.Visible()) frmFiltBrow->Slider1.Value(level);
            PressApply();
        });
    }
    static int StateCount(const frmImage& image) { return image.ListBUorder.ListCount(); }
    static Picture Shown() { return frmFiltBrow->imgSample.Picture(); }
};

struct SizeCase {
    int width, height;             // of the image, in pixels
    int sampleWidth, sampleHeight; // of the sample, in pixels
    const char* reason;
};

class SampleSizeTest : public FilterBrowserTest, public ::testing::WithParamInterface<SizeCase> {};

} // namespace

TEST_F(FilterBrowserTest, OpensOnSharpening) {
    NewDocument(40, 30);
    InBrowser([] {
        EXPECT_EQ(frmFiltBrow->Caption(), "Filtros de Imagem");
        EXPECT_EQ(frmFiltBrow->FiltList.Text(), "Nitidez");
        EXPECT_EQ(frmFiltBrow->lblFiltLevel.Caption(), "Nitidez");
        EXPECT_EQ(frmFiltBrow->Slider1.Min(), 1);
        EXPECT_EQ(frmFiltBrow->Slider1.Max(), 10);
        EXPECT_EQ(frmFiltBrow->Slider1.Value(), 1);
        EXPECT_TRUE(frmFiltBrow->Command1.Enabled());
        EXPECT_TRUE(frmFiltBrow->cmdApply.Enabled());
    });
}

TEST_F(FilterBrowserTest, ButtonsAreOffUntilAFilterIsChosen) {
    EXPECT_FALSE(frmFiltBrow->Command1.Enabled());
    EXPECT_FALSE(frmFiltBrow->cmdApply.Enabled());
    EXPECT_TRUE(frmFiltBrow->cmdCancel.Enabled());
    EXPECT_EQ(frmFiltBrow->Command1.Caption(), "Ver Amostra");
    EXPECT_EQ(frmFiltBrow->cmdApply.Caption(), "Actualizar");
    EXPECT_EQ(frmFiltBrow->cmdCancel.Caption(), "Cancelar");
    frmFiltBrow.Unload();
}

TEST_F(FilterBrowserTest, AnEntryHasItsLevelWhateverWasChosenBefore) {
    NewDocument(40, 30);
    InBrowser([] {
        const auto level = [] {
            const auto& slider = frmFiltBrow->Slider1;
            return std::make_tuple(slider.Visible(), frmFiltBrow->lblFiltLevel.Visible(),
                                   frmFiltBrow->lblFiltLevel.Caption(), slider.Min(), slider.Max());
        };
        // Upward and downward, so that each range follows a lower and a higher one.
        std::vector<decltype(level())> upward;
        const int count = frmFiltBrow->FiltList.ListCount();
        for (int i = 0; i < count; ++i) {
            frmFiltBrow->FiltList.ListIndex(i);
            EXPECT_EQ(FiltIndex, i < 9 ? i : i + 1); // The list leaves out the tenth filter.
            EXPECT_EQ(frmFiltBrow->Slider1.Value(), frmFiltBrow->Slider1.Min()) << i;
            upward.push_back(level());
        }
        for (int i = count - 1; i >= 0; --i) {
            frmFiltBrow->FiltList.ListIndex(i);
            // A level that is hidden keeps the text and the end of the one before.
            if (frmFiltBrow->Slider1.Visible()) {
                EXPECT_EQ(level(), upward[static_cast<std::size_t>(i)]) << i;
            }
        }
    });
}

// What each entry does, whatever its text says: on a flat colour, in the middle and in the last corner.
TEST_F(FilterBrowserTest, EachEntryRunsTheFilterOfItsPlace) {
    struct Row {
        int index, level;
        Colour middle, corner;
        const char* effect;
    };
    const Row rows[] = {{0, 1, 0x3265C8, 0x3265C8, "sharpens: the difference is 0, the split shows"},
                        {1, 1, 0x2D5BB4, 0x142850, "softens: nine tenths, at the corner four"},
                        {2, 1, kFlat, kFlat, "scatters: all neighbours are alike"},
                        {3, 0, 0x7D7D7D, 0x7D7D7D, "grey: 59.59 + 60 + 5.5"},
                        {4, 0, 0xCD9B37, 0xCD9B37, "inverts"},
                        {5, 10, 0x3C6FD2, 0x3C6FD2, "brightens by 10"},
                        {6, 10, 0x285BBE, 0x285BBE, "darkens by 10"},
                        {7, 50, 0xFFFFFF, 0xFFFFFF, "outlines: nothing differs, paper is left"},
                        {8, 100, 0x646464, 0x96C9DC, "embosses: flat grey, a bright edge"}};
    for (const Row& row : rows) {
        frmImage& image = NewDocument(12, 12, kFlat);
        Apply(row.index, row.level);
        EXPECT_EQ(image.PicMerge.Point(6, 6), row.middle) << row.effect;
        EXPECT_EQ(image.PicMerge.Point(11, 11), row.corner) << row.effect;
        ExpectSamePixels(image.Image1.Picture(), ImageOf(image));
        EXPECT_EQ(StateCount(image), 2) << row.effect;
        EXPECT_EQ(frmMain->Pb.Value(), 0) << row.effect;
    }
}

TEST_F(FilterBrowserTest, TheTenthFilterPaintsBoxesStraightOnTheLiveSurface) {
    frmImage& image = OpenPicture("a.bmp", RandomPicture(30, 30, 5));
    image.picsource.Picture(ImageOf(image));
    RunFilter(9, image.picsource, image.PicMerge, 10, frmMain->Pb);
    EXPECT_EQ(image.PicMerge.Point(0, 0), image.picsource.Point(1, 1));
    EXPECT_EQ(image.PicMerge.Point(9, 9), image.picsource.Point(1, 1));
    EXPECT_THROW(RunFilter(1000, image.picsource, image.PicMerge, 10, frmMain->Pb), RuntimeError);
}

TEST_F(FilterBrowserTest, TheLevelOfTheSliderIsTheOneApplied) {
    frmImage& image = NewDocument(12, 12, 0x202020);
    Apply(5, 73);
    EXPECT_EQ(FiltLevel, 73);
    ExpectSamePixels(ImageOf(image), Solid(12, 12, 0x696969)); // 32 + 73
}

TEST_F(FilterBrowserTest, AHiddenSliderStillGivesItsValue) {
    NewDocument(12, 12, kFlat);
    InBrowser([] {
        frmFiltBrow->FiltList.ListIndex(8);
        frmFiltBrow->FiltList.ListIndex(4);
        PressApply();
    });
    EXPECT_EQ(FiltLevel, 1);
    EXPECT_EQ(FiltIndex, 4);
}

TEST_F(FilterBrowserTest, EveryOtherWayOutChangesNothing) {
    frmImage& image = NewDocument(12, 12, kFlat);
    const std::size_t files = StateFileNames().size();
    for (const DialogScript::Step& leave :
         {DialogScript::Step([](QWidget&) { PressCancel(); }), PressesEscape(), ClosesDialog()}) {
        const DialogScript script({[&](QWidget& dialog) {
            frmFiltBrow->FiltList.ListIndex(4);
            PressPreview();
            leave(dialog);
        }});
        Choose(frmMain->mnuFiltBrow);
        EXPECT_FALSE(frmFiltBrow.Loaded());
        EXPECT_FALSE(FiltCancelled);
        ExpectSamePixels(ImageOf(image), Solid(12, 12, kFlat));
        ExpectSamePixels(image.Image1.Picture(), Solid(12, 12, kFlat));
        EXPECT_EQ(StateCount(image), 1);
        EXPECT_EQ(StateFileNames().size(), files);
    }
}

TEST_F(FilterBrowserTest, AnApplicationAfterACancelWorks) {
    frmImage& image = NewDocument(12, 12, kFlat);
    InBrowser([] { PressCancel(); });
    Apply(4, 0);
    ExpectSamePixels(ImageOf(image), Solid(12, 12, 0xCD9B37));
}

TEST_F(FilterBrowserTest, ADocumentClosedBehindTheDialogIsLeftAlone) {
    frmImage& image = NewDocument(12, 12, kFlat);
    InBrowser([&] {
        PressApply();
        QTimer::singleShot(0, qApp, [&] { image.Unload(); });
    });
    EXPECT_EQ(ImageCount, 0);
    EXPECT_TRUE(StateFileNames().empty());
}

TEST_F(FilterBrowserTest, EnterApplies) {
    frmImage& image = NewDocument(12, 12, kFlat);
    InBrowser([] {
        frmFiltBrow->FiltList.ListIndex(4);
        Type(WidgetFor(frmFiltBrow->FiltList), "\n");
    });
    ExpectSamePixels(ImageOf(image), Solid(12, 12, 0xCD9B37));
}

TEST_F(FilterBrowserTest, ARowClickedByHandIsChosen) {
    NewDocument(12, 12, kFlat);
    InBrowser([] {
        auto* list = dynamic_cast<QListWidget*>(&WidgetFor(frmFiltBrow->FiltList));
        ASSERT_NE(list, nullptr);
        list->setCurrentRow(7);
        EXPECT_EQ(FiltIndex, 7);
        EXPECT_EQ(frmFiltBrow->lblFiltLevel.Caption(), "Tolerância");
    });
}

TEST_F(FilterBrowserTest, APreviewShowsTheFilterOnTheSampleOnly) {
    frmImage& image = NewDocument(12, 12, kFlat);
    InBrowser([&] {
        const Picture sample = Shown();
        ExpectSamePixels(sample, Solid(sample.Width(), sample.Height(), kFlat));
        frmFiltBrow->FiltList.ListIndex(4);
        PressPreview();
        ExpectSamePixels(Shown(), Solid(sample.Width(), sample.Height(), 0xCD9B37));
        ExpectSamePixels(ImageOf(image), Solid(12, 12, kFlat));
        EXPECT_FALSE(ScreenLocked());
        EXPECT_TRUE(frmMain->Pb.Visible());
    });
}

TEST_F(FilterBrowserTest, PreviewsDoNotAddUp) {
    NewDocument(12, 12, 0x202020);
    InBrowser([] {
        frmFiltBrow->FiltList.ListIndex(5);
        frmFiltBrow->Slider1.Value(40);
        for (int time = 0; time < 3; ++time) {
            PressPreview();
            EXPECT_EQ(Shown().At(5, 5), 0x484848U) << time; // 32 + 40
        }
    });
}

TEST_F(FilterBrowserTest, AClickOnTheListShowsTheUnfilteredSample) {
    NewDocument(12, 12, kFlat);
    InBrowser([] {
        const Picture sample = Shown();
        frmFiltBrow->FiltList.ListIndex(4);
        PressPreview();
        frmFiltBrow->FiltList.ListIndex(3);
        ExpectSamePixels(Shown(), sample);
        ExpectSamePixels(frmFiltBrow->picsource.Image(), sample);
    });
}

TEST_F(FilterBrowserTest, EveryEntryCanBePreviewed) {
    OpenPicture("a.bmp", RandomPicture(500, 300, 9));
    InBrowser([] {
        const Picture sample = Shown();
        for (int i = 0; i < 9; ++i) {
            frmFiltBrow->FiltList.ListIndex(i);
            PressPreview();
            EXPECT_FALSE(Shown() == sample) << i;
            EXPECT_EQ(Shown().Width(), sample.Width()) << i;
            ExpectSamePixels(frmFiltBrow->PicDest.Image(), sample);
        }
    });
}

TEST_F(FilterBrowserTest, ALongImageIsPreviewedToItsLastPixel) {
    for (const auto& [width, height] : {std::pair{300, 60}, {60, 300}}) {
        OpenPicture("a.bmp", RandomPicture(width, height, 9));
        InBrowser([width = width, height = height] {
            const Picture sample = Shown();
            EXPECT_EQ(sample.Width() > sample.Height(), width > height);
            EXPECT_EQ(std::max(sample.Width(), sample.Height()), 258);
            Picture inverted = sample;
            for (int y = 0; y < sample.Height(); ++y) {
                for (int x = 0; x < sample.Width(); ++x)
                    inverted.Set(x, y, sample.At(x, y) ^ 0xFFFFFF);
            }
            frmFiltBrow->FiltList.ListIndex(4);
            PressPreview();
            ExpectSamePixels(Shown(), inverted);
        });
    }
}

TEST_F(FilterBrowserTest, TheSampleNeedsNoDisk) {
    frmImage& image = NewDocument(300, 200, kFlat);
    SettleStates();
    const std::size_t files = StateFileNames().size();
    InBrowser([&] {
        const FullDisk full(1000);
        EXPECT_EQ(StateFileNames().size(), files);
        // 258 by 171: as wide as the frame lets it be.
        ExpectSamePixels(Shown(), Solid(258, Shown().Height(), kFlat));
        frmFiltBrow->FiltList.ListIndex(4);
        PressPreview();
        ExpectSamePixels(Shown(), Solid(258, Shown().Height(), 0xCD9B37));
        std::filesystem::remove_all(Folder("temporary"));
        frmFiltBrow->FiltList.ListIndex(5);
        ExpectSamePixels(Shown(), Solid(258, Shown().Height(), kFlat));
        PressCancel();
    });
    ExpectSamePixels(ImageOf(image), Solid(300, 200, kFlat));
    EXPECT_EQ(StateCount(image), 1);
}

TEST_F(FilterBrowserTest, AFullDiskKeepsNobodyFromTheDialog) {
    frmImage& image = NewDocument(300, 200, kFlat);
    SettleStates();
    const FullDisk full(1000);
    Apply(4, 0);
    ExpectSamePixels(ImageOf(image), Solid(300, 200, 0xCD9B37));
    Choose(frmMain->mnuEditUndo);
    ExpectSamePixels(ImageOf(image), Solid(300, 200, kFlat));
}

// The frame is 260 pixels a side; the sample has 258 at most.
TEST_P(SampleSizeTest, FollowsTheImage) {
    const SizeCase& c = GetParam();
    NewDocument(c.width, c.height, kFlat);
    InBrowser([&] {
        EXPECT_EQ(frmFiltBrow->ShBG.Width(), 3900);
        EXPECT_EQ(Shown().Width(), c.sampleWidth);
        EXPECT_EQ(Shown().Height(), c.sampleHeight);
        EXPECT_EQ(WidgetFor(frmFiltBrow->imgSample).width(), c.sampleWidth);
        EXPECT_TRUE(
            WidgetFor(frmFiltBrow->SampleArea).rect().contains(WidgetFor(frmFiltBrow->imgSample).geometry()));
        PressPreview();
        EXPECT_EQ(Shown().Width(), c.sampleWidth);
    });
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, SampleSizeTest,
    ::testing::Values(
        SizeCase{258, 258, 258, 258, "TooLargeForTheFrame"},
        SizeCase{100, 100, 258, 258, "SmallSquareIsEnlarged"},
        SizeCase{100, 50, 258, 129, "SmallWideIsEnlarged"},
        SizeCase{50, 100, 129, 258, "SmallTallIsEnlarged"}, SizeCase{1, 1, 258, 258, "OnePixel"},
        // 7500 twips: 1.938 to one. (3750 - 30) / 1.938 is 1919.5 twips.
        SizeCase{500, 250, 258, 128, "WideHeightLacksTwoPixelsOfTheImage"},
        // 7500 twips high: the width comes from the frame, 3870 / 1.938 = 1996.9 twips.
        SizeCase{50, 500, 133, 258, "TallWidthComesFromTheFrame"},
        SizeCase{400, 500, 133, 258, "TallWidthComesFromTheFrameWhateverTheImage"},
        SizeCase{600, 600, 258, 258, "LargeSquare"}, SizeCase{2185, 100, 258, 12, "WiderThan16BitsOfTwips"},
        SizeCase{6000, 4000, 258, 172, "TwentyFourMegapixels"},
        SizeCase{32000, 2, 258, 1, "FlatterThanAPixel"}, SizeCase{1000, 1, 258, 1, "HeightBelowNothing"},
        SizeCase{1, 1000, 67, 258, "TallAndOnePixelWide"}, SizeCase{1, 32000, 2, 258, "TallestImage"}),
    [](const auto& test) { return std::string(test.param.reason); });

TEST_F(FilterBrowserTest, TheSampleStandsInTheMiddleOfItsFrame) {
    NewDocument(500, 250);
    InBrowser([] {
        const auto& form = *frmFiltBrow;
        EXPECT_EQ(form.imgSample.Left(), (3900 - 3870 - 2) / 2.0);
        EXPECT_NEAR(form.imgSample.Top(), 1950 - 1919.52 / 2, 0.01);
    });
}

TEST_F(FilterBrowserTest, TheSampleIsTheWholeImageReduced) {
    Picture halves(1000, 1000, PixelOf(kWhite));
    halves.Fill({0, 0, 500, 1000}, 0x0000FF);
    OpenPicture("a.bmp", halves);
    InBrowser([] {
        Picture expected(258, 258, PixelOf(kWhite));
        expected.Fill({0, 0, 129, 258}, 0x0000FF);
        ExpectSamePixels(Shown(), expected);
    });
}

TEST_F(FilterBrowserTest, TheTabKeyWalksListLevelAndButtons) {
    NewDocument(12, 12);
    InBrowser([] {
        std::vector<std::string> walked;
        const QWidget* at = &WidgetFor(frmFiltBrow->FiltList);
        EXPECT_EQ(WidgetFor(*frmFiltBrow).focusWidget(), at);
        do {
            if (at->focusPolicy() & Qt::TabFocus) walked.push_back(at->objectName().toStdString());
            at = at->nextInFocusChain();
        } while (at != &WidgetFor(frmFiltBrow->FiltList));
        EXPECT_EQ(walked,
                  (std::vector<std::string>{"FiltList", "Slider1", "Command1", "cmdApply", "cmdCancel"}));
    });
}

TEST_F(FilterBrowserTest, NothingIsClippedAndNothingMovesWhenTheLevelHides) {
    NewDocument(12, 12);
    InBrowser([] {
        const QWidget& dialog = WidgetFor(*frmFiltBrow);
        const QSize size = dialog.size();
        const QRect list = WidgetFor(frmFiltBrow->FiltList).geometry();
        for (int i = 0; i < 9; ++i) {
            frmFiltBrow->FiltList.ListIndex(i);
            PassEvents();
            EXPECT_EQ(dialog.size(), size) << i;
            EXPECT_EQ(WidgetFor(frmFiltBrow->FiltList).geometry(), list) << i;
            for (const QWidget* control : dialog.findChildren<QWidget*>()) {
                if (!control->isVisible() || control->objectName().startsWith("qt_")) continue;
                EXPECT_GE(control->width(), control->minimumSizeHint().width())
                    << control->objectName().toStdString();
                EXPECT_GE(control->height(), control->minimumSizeHint().height())
                    << control->objectName().toStdString();
            }
        }
        const auto* rows = dynamic_cast<const QListWidget*>(&WidgetFor(frmFiltBrow->FiltList));
        EXPECT_GE(rows->viewport()->height(), 9 * rows->sizeHintForRow(0));
        EXPECT_GE(rows->viewport()->width(), rows->sizeHintForColumn(0));
    });
}

TEST_F(FilterBrowserTest, ScreenReadersHearWhatEachControlIs) {
    NewDocument(12, 12);
    InBrowser([] {
        EXPECT_EQ(WidgetFor(frmFiltBrow->FiltList).accessibleName(), "Filtro");
        EXPECT_EQ(WidgetFor(frmFiltBrow->imgSample).accessibleName(), "Amostra");
        frmFiltBrow->FiltList.ListIndex(8);
        EXPECT_EQ(WidgetFor(frmFiltBrow->Slider1).accessibleName(), "Relevo");
        frmFiltBrow->Slider1.Value(150);
        EXPECT_EQ(frmFiltBrow->Slider1.ToolTipText(), "150");
        EXPECT_EQ(frmFiltBrow->lblValue.Caption(), "150");
    });
}

TEST_F(FilterBrowserTest, TheEndOfTheProgramTakesALoadedDialogAlong) {
    NewDocument(12, 12);
    *frmFiltBrow;
    SetSetting("SavePrompt", "1");
    frmMain.Unload();
    EXPECT_FALSE(frmFiltBrow.Loaded());
}

} // namespace pintalux
