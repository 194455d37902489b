// The frame wizard: what each style shows, the sample, the ways out of it, what it paints.
#include "imageops/ImageDialogTest.h"
#include "support/Folders.h"

#include "base/Arithmetic.h"
#include "colour/ColourPanel.h"
#include "document/Globals.h"
#include "imageops/FrameModels.h"
#include "imageops/frmBWiz.h"
#include "selection/RectangleSelection.h"
#include "surface/raster/Transfer.h"
#include "surface/system/CommonDialog.h"
#include "surface/system/Pictures.h"
#include "surface/system/TempNames.h"
#include "surface/window/ProgressBar.h"

#include <filesystem>
#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QTimer>

namespace pintalux {
namespace {

void PressApply() {
    ClickWidget(WidgetFor(frmBWiz->cmdApply));
}
void PressPreview() {
    ClickWidget(WidgetFor(frmBWiz->Command1));
}

class FrameWizardTest : public ImageDialogTest {
  protected:
    static void InWizard(const std::function<void()>& act) {
        InDialogOf(frmMain->mnuBorderWiz, frmBWiz, act);
    }
    static void Apply(int style, int first, int second, int third) {
        InWizard([=] {
            frmBWiz->BordList.ListIndex(style);
            frmBWiz->SL1.Value(first);
            frmBWiz->SL2.Value(second);
            frmBWiz->SL3.Value(third);
            PressApply();
        });
    }
    static FrameModel ModelFor(const Picture& picture) {
        return {ModelSurface(picture), ModelSurface(picture)};
    }
    /// The frame of a style on a picture, after its model. `second` and `third` are the sliders where the
    /// style has them, 0x2040C0 is the colour.
    static Picture FramedByModel(const Picture& picture, int style, int first, int second, int third) {
        FrameModel model = ModelFor(picture);
        if (style == 0) model.Bevel(first, second, third, false, false);
        if (style == 1) model.FadedBevel(first, second, third, false, false);
        if (style == 2) model.Mould(first, second, 0xC0C0C0);
        if (style == 3) model.Mould(first, second, 0x2040C0);
        if (style == 4) model.Plain(first, 0x2040C0, false, false);
        if (style == 5) model.Ridge(first, false, false, true);
        if (style == 6) model.Ridge(first, false, false, false);
        return model.live.shown;
    }
    /// Every style over a picture, as a whole.
    void ExpectEveryStyleAsModel(const Picture& picture, int first, int second, int third) {
        for (int style = 0; style < kStyles; ++style) {
            SCOPED_TRACE(style);
            frmImage& image = OpenPicture("a.bmp", picture);
            BWizColour = 0x2040C0;
            Apply(style, first, second, third);
            ExpectDone(image, picture, FramedByModel(picture, style, first, second, third));
        }
    }
    /// Every style on a rectangle of a picture. What of it lies outside the picture is white.
    void ExpectEveryStyleAsModelInside(const Picture& picture, const Box& place, int first, int second,
                                       int third) {
        Picture piece(place.Width(), place.Height(), kWhite);
        piece.Copy(-place.left, -place.top, picture, picture.Bounds());
        for (int style = 0; style < kStyles; ++style) {
            SCOPED_TRACE(style);
            frmImage& image = OpenPicture("a.bmp", picture);
            FloatRectangle(image, place.left, place.top, place.Width(), place.Height());
            image.SelHolder.Picture(piece);
            BWizColour = 0x2040C0;
            Apply(style, first, second, third);
            EXPECT_TRUE(SelectionEnded(image));
            const Picture framed = FramedByModel(piece, style, first, second, third);
            ExpectDone(image, picture, With(picture, place.left, place.top, framed));
        }
    }
    static constexpr int kStyles = 7;
};

/// A photograph of the collection; empty where that is not at hand.
Picture Photograph(const std::string& name) {
    const std::string path = SharedPictures() + "/real/" + name;
    return std::filesystem::exists(path) ? LoadPicture(path) : Picture();
}

} // namespace

TEST_F(FrameWizardTest, OpensOnTheFirstStyle) {
    NewDocument(40, 30);
    InWizard([] {
        EXPECT_EQ(frmBWiz->Caption(), " Molduras");
        const std::vector<std::string> styles = {"Botão 1",           "Botão 2",
                                                 "Moldura - P/B",     "Moldura - Cores",
                                                 "Bordo Colorido",    "Bordo P/B - P/dentro",
                                                 "Bordo P/B - P/fora"};
        ASSERT_EQ(frmBWiz->BordList.ListCount(), 7);
        for (int i = 0; i < 7; ++i)
            EXPECT_EQ(frmBWiz->BordList.List(i), styles[static_cast<std::size_t>(i)]);
        EXPECT_EQ(frmBWiz->BordList.ListIndex(), 0);
        EXPECT_EQ(frmBWiz->SL1.Max(), 100);
        EXPECT_EQ(frmBWiz->SL2.Max(), 100);
        EXPECT_EQ(frmBWiz->SL3.Max(), 200);
        EXPECT_EQ(frmBWiz->Command1.Caption(), "&Ver a amostra");
        EXPECT_EQ(frmBWiz->cmdColorsel.Caption(), "&Seleccionar a Cor");
        const auto caption = [](const CheckBox& box) {
            return dynamic_cast<QAbstractButton&>(WidgetFor(box)).text().remove('&').toStdString();
        };
        EXPECT_EQ(caption(frmBWiz->Check1), "Inserir Linha de Fora");
        EXPECT_EQ(caption(frmBWiz->Check2), "Inserir Linha de Dentro");
        EXPECT_EQ(caption(frmBWiz->Check3), "Utilizar a Cor Actual");
    });
}

TEST_F(FrameWizardTest, EachStyleShowsItsControlsOnly) {
    struct Row {
        bool second, third, colour, outer, inner, current;
        const char* secondLabel;
    };
    const Row rows[] = {{true, true, false, false, false, false, "INTENSIDADE"},
                        {true, true, false, true, false, false, "INTENSIDADE"},
                        {true, false, false, false, false, false, "TAMANHO DA MOLDURA"},
                        {true, false, true, false, false, false, "TAMANHO DA MOLDURA"},
                        {false, false, true, true, true, true, nullptr},
                        {false, false, false, true, false, false, nullptr},
                        {false, false, false, true, false, false, nullptr}};
    NewDocument(40, 30);
    InWizard([&] {
        for (const int i : {0, 1, 2, 3, 4, 5, 6, 5, 4, 3, 2, 1, 0}) {
            SCOPED_TRACE(i);
            frmBWiz->BordList.ListIndex(i);
            EXPECT_TRUE(frmBWiz->SL1.Visible());
            EXPECT_EQ(frmBWiz->Lb1.Caption(), "TAMANHO DO BORDO");
            EXPECT_EQ(frmBWiz->SL2.Visible(), rows[i].second);
            EXPECT_EQ(frmBWiz->Lb2.Visible(), rows[i].second);
            if (rows[i].second) {
                EXPECT_EQ(frmBWiz->Lb2.Caption(), rows[i].secondLabel);
            }
            EXPECT_EQ(frmBWiz->SL3.Visible(), rows[i].third);
            EXPECT_EQ(frmBWiz->Lb3.Visible(), rows[i].third);
            EXPECT_EQ(frmBWiz->Lb3.Caption(), "INTENSIDADE DA SOMBRA");
            EXPECT_EQ(frmBWiz->cmdColorsel.Visible(), rows[i].colour);
            EXPECT_EQ(frmBWiz->Check1.Visible(), rows[i].outer);
            EXPECT_EQ(frmBWiz->Check2.Visible(), rows[i].inner);
            EXPECT_EQ(frmBWiz->Check3.Visible(), rows[i].current);
        }
    });
}

// With sliders set that a style does not take.
TEST_F(FrameWizardTest, EachStylePaintsItsFrame) {
    ExpectEveryStyleAsModel(RandomPicture(90, 70, 4), 24, 40, 90);
    EXPECT_EQ(frmMain->Pb.Value(), 0);
}

TEST_F(FrameWizardTest, APhotographIsFramedInEveryStyle) {
    const Picture photograph = Photograph("harvesters.jpeg");
    if (photograph.Empty()) GTEST_SKIP() << "no photographs here";
    ExpectEveryStyleAsModel(photograph, 61, 70, 150);
}

TEST_F(FrameWizardTest, ARectangleOfAPhotographIsFramedInEveryStyle) {
    const Picture photograph = Photograph("hibiscus.regular.jpeg");
    if (photograph.Empty()) GTEST_SKIP() << "no photographs here";
    ExpectEveryStyleAsModelInside(photograph, {31, 57, 290, 400}, 40, 55, 120);
}

TEST_F(FrameWizardTest, ARectangleIsFramedInEveryStyle) {
    ExpectEveryStyleAsModelInside(RandomPicture(70, 60, 5), {9, 11, 50, 45}, 17, 12, 60);
}

// The frame runs around the whole rectangle; what lies inside the image of it is seen.
TEST_F(FrameWizardTest, ARectangleThatHangsOffTheImageIsFramedAsAWhole) {
    const Picture picture = RandomPicture(50, 40, 6);
    for (const Box place :
         {Box{-12, -7, 25, 20}, Box{30, 22, 64, 49}, Box{-5, 10, 60, 30}, Box{-9, -9, 70, 60}})
        ExpectEveryStyleAsModelInside(picture, place, 16, 9, 80);
}

TEST_F(FrameWizardTest, ARectangleOutsideTheImageLeavesItAsItWas) {
    const Picture picture = RandomPicture(50, 40, 6);
    ExpectEveryStyleAsModelInside(picture, {60, 5, 80, 25}, 6, 5, 80);
}

TEST_F(FrameWizardTest, ALineCountsAsTickedWhereTheStyleHidesIt) {
    const Picture picture = RandomPicture(40, 40, 4);
    frmImage& image = OpenPicture("a.bmp", picture);
    FrameModel expected = ModelFor(picture);
    expected.Bevel(6, 30, 30, true, true);
    InWizard([] {
        frmBWiz->BordList.ListIndex(4);
        frmBWiz->Check1.Value(1);
        frmBWiz->Check2.Value(1);
        frmBWiz->BordList.ListIndex(0);
        frmBWiz->SL1.Value(6);
        frmBWiz->SL2.Value(30);
        frmBWiz->SL3.Value(30);
        PressApply();
    });
    EXPECT_TRUE(BWizOuterLine);
    EXPECT_TRUE(BWizInnerLine);
    ExpectSamePixels(ImageOf(image), expected.live.shown);
}

TEST_F(FrameWizardTest, TheLastStateOpensAgain) {
    NewDocument(40, 30);
    Apply(1, 7, 30, 90);
    InWizard([] {
        EXPECT_EQ(frmBWiz->BordList.ListIndex(), 1);
        EXPECT_EQ(frmBWiz->SL1.Value(), 7);
        EXPECT_EQ(frmBWiz->SL2.Value(), 30);
        EXPECT_EQ(frmBWiz->SL3.Value(), 90);
        frmBWiz->BordList.ListIndex(2);
        frmBWiz->SL2.Value(55);
        PressApply();
    });
    InWizard([] {
        EXPECT_EQ(frmBWiz->BordList.ListIndex(), 2);
        EXPECT_EQ(frmBWiz->SL2.Value(), 55);
    });
    EXPECT_EQ(BWizHighlight, 30);
}

TEST_F(FrameWizardTest, AFreehandPieceIsRefused) {
    frmImage& image = NewDocument(40, 30);
    image.PicFreeSelect.Visible(true);
    const DialogScript script({PressesButton("OK")});
    Choose(frmMain->mnuBorderWiz);
    EXPECT_EQ(script.Dialog(0).title, "VALMERO Multimédia");
    EXPECT_EQ(script.Dialog(0).text, "A area a seleccionar terá que ser rectangular.");
    EXPECT_FALSE(frmBWiz.Loaded());
    EXPECT_EQ(StateCount(image), 1);
    image.PicFreeSelect.Visible(false);
}

TEST_F(FrameWizardTest, ARectangleIsFramedAndDropped) {
    const Picture picture = RandomPicture(60, 50, 8);
    frmImage& image = OpenPicture("a.bmp", picture);
    CurrentTool = 13;
    Drag(image, {{10, 12}, {20, 20}, {40, 32}});
    ASSERT_TRUE(image.PicSelect.Visible());
    const Picture piece = image.SelHolder.Image();
    FrameModel expected = ModelFor(piece);
    expected.Plain(4, kBlack, true, false);
    const Extent place{ToInt32(image.SelectLeft), ToInt32(image.SelectTop), piece.Width(), piece.Height()};
    InWizard([] {
        frmBWiz->BordList.ListIndex(4);
        frmBWiz->SL1.Value(4);
        frmBWiz->Check1.Value(1);
        PressApply();
    });
    Picture whole = picture;
    whole.Copy(place.x, place.y, expected.live.shown, expected.live.shown.Bounds());
    ExpectSamePixels(ImageOf(image), whole);
    EXPECT_FALSE(image.PicSelect.Visible());
    EXPECT_EQ(StateCount(image), 2);
}

TEST_F(FrameWizardTest, EveryOtherWayOutChangesNothing) {
    frmImage& image = NewDocument(12, 12, 0x3264C8);
    const std::size_t files = StateFileNames().size();
    ExpectOtherWaysOutChangeNothing(image, frmMain->mnuBorderWiz, frmBWiz, [] {
        EXPECT_FALSE(BWizCancelled);
        frmBWiz->BordList.ListIndex(4);
        frmBWiz->SL1.Value(5);
        PressPreview();
    });
    EXPECT_FALSE(BWizCancelled);
    EXPECT_EQ(BWizStyle, 0);
    EXPECT_EQ(BWizSize, 0);
    EXPECT_EQ(StateFileNames().size(), files);
}

// 516 pixels on 258 of the sample: a size of 40 is one of 20 there, and a frame size of 60 one of 30.
TEST_F(FrameWizardTest, ThePreviewScalesLengths) {
    OpenPicture("a.bmp", RandomPicture(516, 516, 3));
    InWizard([] {
        const Picture sample = frmBWiz->imgSample.Picture();
        ASSERT_EQ(sample.Width(), 258);
        EXPECT_DOUBLE_EQ(frmBWiz->SampleScale, 2);
        frmBWiz->BordList.ListIndex(3);
        frmBWiz->SL1.Value(40);
        frmBWiz->SL2.Value(60);
        PressPreview();
        FrameModel expected = ModelFor(sample);
        expected.Mould(20, 30, kBlack);
        ExpectSamePixels(frmBWiz->imgSample.Picture(), expected.live.shown);
        EXPECT_FALSE(ScreenLocked());
        EXPECT_TRUE(frmMain->Pb.Visible());
    });
    EXPECT_EQ(BWizFrameSize, 0);
}

TEST_F(FrameWizardTest, ThePreviewDrawsTheLinesThatAreTicked) {
    OpenPicture("a.bmp", RandomPicture(258, 258, 3));
    InWizard([] {
        const Picture sample = frmBWiz->imgSample.Picture();
        frmBWiz->BordList.ListIndex(4);
        frmBWiz->SL1.Value(9);
        frmBWiz->cmdColorsel.BackColor(0x2040C0);
        for (const auto& [outer, inner] :
             {std::pair{true, false}, {false, true}, {true, true}, {false, false}}) {
            frmBWiz->Check1.Value(outer ? 1 : 0);
            frmBWiz->Check2.Value(inner ? 1 : 0);
            PressPreview();
            FrameModel expected = ModelFor(sample);
            expected.Plain(9, 0x2040C0, outer, inner);
            ExpectSamePixels(frmBWiz->imgSample.Picture(), expected.live.shown);
        }
    });
}

TEST_F(FrameWizardTest, TheSampleShowsTheRectangle) {
    frmImage& image = NewDocument(40, 40);
    image.PicMerge.LineBF(10, 10, 19, 19, 0x0000FF);
    FloatRectangle(image, 10, 10, 10, 10);
    InWizard([] { ExpectSamePixels(frmBWiz->imgSample.Picture(), Solid(258, 258, 0x0000FF)); });
    EXPECT_TRUE(image.PicSelect.Visible());
    EXPECT_EQ(image.PicSelect.Width(), 10);
}

TEST_F(FrameWizardTest, ARectangleIsFramedInItsOwnPixelsAtEveryZoom) {
    const Picture picture = RandomPicture(64, 48, 2);
    for (const double factor : {3.0, 16.0, 0.5, 0.125}) {
        SCOPED_TRACE(factor);
        frmImage& image = OpenPicture("a.bmp", picture);
        ShowAtFactor(image, factor);
        FloatRectangle(image, 16, 8, 32, 24);
        const Picture piece = image.SelHolder.Image();
        BWizColour = 0x2040C0;
        Apply(4, 5, 0, 0);
        ExpectSamePixels(ImageOf(image), With(picture, 16, 8, FramedByModel(piece, 4, 5, 0, 0)));
    }
}

TEST_F(FrameWizardTest, ThePreviewLeavesIntensitiesAndStartsAfresh) {
    OpenPicture("a.bmp", RandomPicture(516, 516, 3));
    InWizard([] {
        const Picture sample = frmBWiz->imgSample.Picture();
        frmBWiz->BordList.ListIndex(0);
        frmBWiz->SL1.Value(31); // 15.5 is 16.
        frmBWiz->SL2.Value(45);
        frmBWiz->SL3.Value(120);
        FrameModel expected = ModelFor(sample);
        expected.Bevel(16, 45, 120, false, false);
        for (int time = 0; time < 2; ++time) {
            PressPreview();
            ExpectSamePixels(frmBWiz->imgSample.Picture(), expected.live.shown);
            ExpectSamePixels(frmBWiz->picsource.Image(), sample);
            ExpectSamePixels(frmBWiz->PicDest.Image(), sample);
        }
    });
}

TEST_F(FrameWizardTest, TheCurrentColourIsTakenAndKept) {
    NewDocument(40, 30);
    frmMain->SetCurrentColour(0x123456);
    InWizard([] {
        frmBWiz->BordList.ListIndex(4);
        EXPECT_EQ(frmBWiz->cmdColorsel.BackColor(), kBlack);
        frmBWiz->Check3.Value(1);
        EXPECT_EQ(frmBWiz->cmdColorsel.BackColor(), 0x123456);
        EXPECT_EQ(BWizColour, 0x123456);
        frmMain->SetCurrentColour(0x654321);
        frmBWiz->Check3.Value(0);
        EXPECT_EQ(frmBWiz->cmdColorsel.BackColor(), 0x123456);
    });
}

TEST_F(FrameWizardTest, AChosenColourClearsTheTickOfTheCurrentOne) {
    NewDocument(40, 30);
    const DialogScript script({[](QWidget& dialog) {
                                   frmBWiz->BordList.ListIndex(4);
                                   frmBWiz->Check3.Value(1);
                                   frmBWiz->Check3.SetFocus();
                                   ClickWidget(WidgetFor(frmBWiz->cmdColorsel));
                                   EXPECT_EQ(frmBWiz->Check3.Value(), 0);
                                   EXPECT_EQ(BWizColour, 0x302010);
                                   EXPECT_EQ(frmBWiz->cmdColorsel.BackColor(), 0x302010);
                                   dialog.activateWindow(); // as a desktop does
                                   EXPECT_TRUE(WaitFor([] { return frmBWiz->BordList.HasFocus(); }))
                                       << "arrows choose the style again";
                                   PressButton(dialog, "Cancelar");
                               },
                               [](QWidget& dialog) {
                                   auto* colours = dynamic_cast<QColorDialog*>(&dialog);
                                   ASSERT_NE(colours, nullptr);
                                   colours->setCurrentColor(QColor(0x10, 0x20, 0x30));
                                   colours->accept();
                               }});
    Choose(frmMain->mnuBorderWiz);
}

TEST_F(FrameWizardTest, AColourDialogThatIsCancelledKeepsTheColour) {
    NewDocument(40, 30);
    BWizColour = 0x2040C0;
    CommonDialog1.CancelError = true; // left by a file dialog
    frmMain->SetCurrentColour(0x123456);
    const DialogScript script({[](QWidget& dialog) {
                                   EXPECT_EQ(frmBWiz->cmdColorsel.BackColor(), 0x2040C0);
                                   frmBWiz->BordList.ListIndex(4);
                                   frmBWiz->Check3.Value(1);
                                   ClickWidget(WidgetFor(frmBWiz->cmdColorsel));
                                   EXPECT_EQ(frmBWiz->Check3.Value(), 0);
                                   EXPECT_EQ(BWizColour, 0x123456);
                                   EXPECT_EQ(frmBWiz->cmdColorsel.BackColor(), 0x123456);
                                   PressButton(dialog, "Cancelar");
                               },
                               PressesEscape()});
    Choose(frmMain->mnuBorderWiz);
}

TEST_F(FrameWizardTest, ASizeFarBeyondTheImageStaysWithinIt) {
    ExpectEveryStyleAsModel(RandomPicture(10, 10, 4), 100, 100, 200);
    ExpectEveryStyleAsModelInside(RandomPicture(20, 20, 4), {4, 5, 14, 15}, 100, 30, 200);
    EXPECT_TRUE(untrapped.empty());
}

// Row and column 0 belong to no band.
TEST_F(FrameWizardTest, AnImageOfOnePixelKeepsItInEveryStyle) {
    ExpectEveryStyleAsModel(Solid(1, 1, 0x3264C8), 100, 100, 200);
    InWizard([] {
        frmBWiz->SL1.Value(100);
        PressPreview();
    });
    EXPECT_TRUE(untrapped.empty());
}

TEST_F(FrameWizardTest, WithoutATemporaryFolderTheFrameIsPaintedUnrecorded) {
    const Picture picture = RandomPicture(40, 30, 4);
    frmImage& image = OpenPicture("a.bmp", picture);
    TempFoldersForTests(false);
    BWizColour = 0x2040C0;
    Apply(4, 5, 0, 0);
    TempFoldersForTests(true);
    ExpectSamePixels(ImageOf(image), FramedByModel(picture, 4, 5, 0, 0));
    EXPECT_EQ(StateCount(image), 1);
    EXPECT_FALSE(image.alreadysaved);
}

TEST_F(FrameWizardTest, ADocumentClosedBehindTheDialogIsLeftAlone) {
    frmImage& image = NewDocument(12, 12, 0x3264C8);
    InWizard([&] {
        PressApply();
        QTimer::singleShot(0, qApp, [&] { image.Unload(); });
    });
    EXPECT_EQ(ImageCount, 0);
    EXPECT_TRUE(StateFileNames().empty());
}

} // namespace pintalux
