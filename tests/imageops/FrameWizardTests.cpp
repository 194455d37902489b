// The frame wizard: what each style shows, the sample, the ways out of it, what it paints.
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "base/Arithmetic.h"
#include "colour/ColourPanel.h"
#include "document/Globals.h"
#include "imageops/FrameModels.h"
#include "imageops/frmBWiz.h"
#include "selection/RectangleSelection.h"
#include "surface/raster/Transfer.h"
#include "surface/window/ProgressBar.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QTimer>

namespace pintalux {
namespace {

void PressApply() {
    ClickWidget(WidgetFor(frmBWiz->cmdApply));
}
void PressCancel() {
    ClickWidget(WidgetFor(frmBWiz->cmdCancel));
}
void PressPreview() {
    ClickWidget(WidgetFor(frmBWiz->Command1));
}

class FrameWizardTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
    // The wizard from the menu, with this done in it. Leaves by "Cancelar" if the act did not.
    static void InWizard(const std::function<void()>& act) {
        const DialogScript script({[&](QWidget&) {
            act();
            if (frmBWiz.Loaded()) PressCancel();
        }});
        Choose(frmMain->mnuBorderWiz);
        EXPECT_FALSE(frmBWiz.Loaded());
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
    static int StateCount(const frmImage& image) { return image.ListBUorder.ListCount(); }
    static FrameModel ModelFor(const Picture& picture) {
        return {ModelSurface(picture), ModelSurface(picture)};
    }
};

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

// Each style against the model of its frame, with sliders that a style does not take set as well.
TEST_F(FrameWizardTest, EachStylePaintsItsFrame) {
    const Picture picture = RandomPicture(90, 70, 4);
    for (int style = 0; style < 7; ++style) {
        SCOPED_TRACE(style);
        frmImage& image = OpenPicture("a.bmp", picture);
        BWizColour = 0x2040C0;
        FrameModel expected = ModelFor(picture);
        if (style == 0) expected.Bevel(24, 40, 90, false, false);
        if (style == 1) expected.FadedBevel(24, 40, 90, false, false);
        if (style == 2) expected.Mould(24, 40, 0xC0C0C0);
        if (style == 3) expected.Mould(24, 40, 0x2040C0);
        if (style == 4) expected.Plain(24, 0x2040C0, false, false);
        if (style == 5) expected.Ridge(24, false, false, true);
        if (style == 6) expected.Ridge(24, false, false, false);
        Apply(style, 24, 40, 90);
        ExpectSamePixels(ImageOf(image), expected.live.shown);
        ExpectSamePixels(image.Image1.Picture(), expected.live.shown);
        EXPECT_EQ(StateCount(image), 2);
        EXPECT_EQ(frmMain->Pb.Value(), 0);
        Choose(frmMain->mnuEditUndo);
        ExpectSamePixels(ImageOf(image), picture);
        Choose(frmMain->mnuEditRedo);
        ExpectSamePixels(ImageOf(image), expected.live.shown);
    }
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
    for (const DialogScript::Step& leave :
         {DialogScript::Step([](QWidget&) { PressCancel(); }), PressesEscape(), ClosesDialog()}) {
        const DialogScript script({[&](QWidget& dialog) {
            frmBWiz->BordList.ListIndex(4);
            frmBWiz->SL1.Value(5);
            PressPreview();
            leave(dialog);
        }});
        Choose(frmMain->mnuBorderWiz);
        EXPECT_FALSE(frmBWiz.Loaded());
        EXPECT_FALSE(BWizCancelled);
        EXPECT_EQ(BWizStyle, 0);
        EXPECT_EQ(BWizSize, 0);
        ExpectSamePixels(ImageOf(image), Solid(12, 12, 0x3264C8));
        EXPECT_EQ(StateCount(image), 1);
        EXPECT_EQ(StateFileNames().size(), files);
    }
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
    const DialogScript script({[](QWidget&) {
                                   frmBWiz->BordList.ListIndex(4);
                                   frmBWiz->Check3.Value(1);
                                   ClickWidget(WidgetFor(frmBWiz->cmdColorsel));
                                   EXPECT_EQ(frmBWiz->Check3.Value(), 0);
                                   EXPECT_EQ(BWizColour, 0x302010);
                                   EXPECT_EQ(frmBWiz->cmdColorsel.BackColor(), 0x302010);
                                   PressCancel();
                               },
                               [](QWidget& dialog) {
                                   auto* colours = dynamic_cast<QColorDialog*>(&dialog);
                                   ASSERT_NE(colours, nullptr);
                                   colours->setCurrentColor(QColor(0x10, 0x20, 0x30));
                                   colours->accept();
                               }});
    Choose(frmMain->mnuBorderWiz);
}

TEST_F(FrameWizardTest, ASizeFarBeyondTheImageStaysWithinIt) {
    const Picture picture = RandomPicture(10, 10, 4);
    for (int style = 0; style < 7; ++style) {
        SCOPED_TRACE(style);
        frmImage& image = OpenPicture("a.bmp", picture);
        Apply(style, 100, 100, 200);
        EXPECT_EQ(ImageOf(image).Width(), 10);
        EXPECT_EQ(StateCount(image), 2);
        EXPECT_TRUE(untrapped.empty());
    }
}

TEST_F(FrameWizardTest, AnImageOfOnePixelCanBeFramed) {
    for (int style = 0; style < 7; ++style) {
        frmImage& image = NewDocument(1, 1, 0x3264C8);
        InWizard([=] {
            frmBWiz->BordList.ListIndex(style);
            frmBWiz->SL1.Value(100);
            PressPreview();
            PressApply();
        });
        EXPECT_EQ(StateCount(image), 2) << style;
        EXPECT_TRUE(untrapped.empty()) << style;
    }
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
