// The menu bar, walked to its leaves as the user sees it.
#include "support/Documents.h"
#include "support/Program.h"

#include "document/ImageMenus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace pintalux {

namespace {

class MenuTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
    static std::vector<std::string> Walk() {
        std::vector<std::string> lines;
        Walk(WidgetFor(*frmMain).findChildren<QMenuBar*>().constFirst()->actions(), "", lines);
        return lines;
    }

  private:
    // An item is its name, caption and short cut; a line above its items, a separator "-".
    static void Walk(const QList<QAction*>& actions, const std::string& indent,
                     std::vector<std::string>& lines) {
        for (const QAction* action : actions) {
            if (!action->isVisible()) continue;
            std::string line =
                action->isSeparator() ? "-" : (action->objectName() + " " + action->text()).toStdString();
            if (!action->shortcut().isEmpty())
                line += " " + action->shortcut().toString(QKeySequence::PortableText).toStdString();
            lines.push_back(indent + line);
            if (action->menu() != nullptr) Walk(action->menu()->actions(), indent + "  ", lines);
        }
    }
};

const std::vector<std::string> kMenuBar = {
    "mnuFile &Ficheiro",
    "  mnuFileNew &Nova Ctrl+N",
    "  mnuFileOpen &Abrir... Ctrl+O",
    "  mnuFileClose &Fechar Ctrl+W",
    "  -",
    "  mnuFileSave &Salvar Ctrl+S",
    "  mnuFileSaveAs Salvar &Como...",
    "  -",
    "  mnuFileTwain Digitalizador",
    "    mnuFileAquire Digitalizar",
    "    mnuFileTSelect Seleccionar Digitalizador",
    "  mnuFilePrinter Impressora",
    "    mnuFilePrinterSetup Configurar Impressora",
    "    mnuFilePrinterPrint Imprimir Ctrl+P",
    "  -",
    "  mnuFileSaveOptions Preferências",
    "  -",
    "  mnuFileExit &Sair Ctrl+Q",
    "mnuEdit &Editar",
    "  mnuEditUndo &Desfazer Ctrl+D",
    "  mnuEditRedo &Refazer Ctrl+Y",
    "  -",
    "  mnuEditCut Cu&rtar Ctrl+X",
    "  mnuEditCopy &Copiar Ctrl+C",
    "  mnuEditPaste C&olar Ctrl+V",
    "  mnuEditPasteNew Colar como Nova Imagem",
    "  -",
    "  mnuEditSelectAll Seleccionar Tudo Ctrl+A",
    "  mnuEditSelectNone Limpar selecção",
    "  -",
    "  mnuEditClip Monitor da area de transferência",
    "mnuImage &Imagem",
    "  mnuImageProperties Propriedades da Imagem",
    "  -",
    "  mnuFlipV Viragem Vertical",
    "  mnuFlipH Viragem Horizontal",
    "  mnuRotate90 Rodar 90 Graus",
    "  mnuRotate180 Rodar 180 Graus",
    "  mnuRotate270 Rodar 270 Graus",
    "  -",
    "  mnuResize Redimensionar a Imagem",
    "  mnuAddBorders Inserir Bordos",
    "  mnuBorderWiz Colocar Molduras",
    "  -",
    "  mnuFiltBrow Filtros de Imagem",
    "  mnuIncCol Incrementar Cor",
    "    mnuColInc0 Vermelho",
    "    mnuColInc1 Verde",
    "    mnuColInc2 Azul",
    "  mnuRedCol Reduzir Cor",
    "    mnuColRed0 Vermelho",
    "    mnuColRed1 Verde",
    "    mnuColRed2 Azul",
    "mnuView &Visualizar",
    "  mnuViewToolbar &Caixa de ferramentas",
    "  mnuViewColorBox Caixa de Cor",
    "  mnuViewSettingsBar Acertos",
    "  mnuViewRulers Reguas",
    "  -",
    "  mnuZoomActual Tamanho actual",
    "  mnuZoomIn Ampliar Imagem",
    "    mnuZoomInX0 1:1",
    "    mnuZoomInX1 2:1",
    "    mnuZoomInX2 3:1",
    "    mnuZoomInX3 4:1",
    "    mnuZoomInX4 5:1",
    "    mnuZoomInX5 6:1",
    "    mnuZoomInX6 7:1",
    "    mnuZoomInX7 8:1",
    "    mnuZoomInX8 9:1",
    "    mnuZoomInX9 10:1",
    "    mnuZoomInX10 11:1",
    "    mnuZoomInX11 12:1",
    "    mnuZoomInX12 13:1",
    "    mnuZoomInX13 14:1",
    "    mnuZoomInX14 15:1",
    "    mnuZoomInX15 16:1",
    "  mnuZoomOut Diminuir Imagem",
    "    mnuZoomOutX0 1:1",
    "    mnuZoomOutX1 1:2",
    "    mnuZoomOutX2 1:3",
    "    mnuZoomOutX3 1:4",
    "    mnuZoomOutX4 1:5",
    "    mnuZoomOutX5 1:6",
    "    mnuZoomOutX6 1:7",
    "    mnuZoomOutX7 1:8",
    "    mnuZoomOutX8 1:9",
    "    mnuZoomOutX9 1:10",
    "    mnuZoomOutX10 1:11",
    "    mnuZoomOutX11 1:12",
    "    mnuZoomOutX12 1:13",
    "    mnuZoomOutX13 1:14",
    "    mnuZoomOutX14 1:15",
    "    mnuZoomOutX15 1:16",
    "mnuWindow &Janelas",
    "  mnuWindowNewWindow &Nova Janela",
    "  -",
    "  mnuWindowCascade &Cascata",
    "  mnuWindowTileHorizontal Colagem &Horizontal",
    "  mnuWindowTileVertical Colagem &Vertical",
};

} // namespace

TEST_F(MenuTest, TheMenuBarFromTopToBottom) {
    const std::vector<std::string> found = Walk();
    for (std::size_t i = 0; i < std::min(found.size(), kMenuBar.size()); ++i)
        ASSERT_EQ(found[i], kMenuBar[i]) << "line " << i;
    EXPECT_EQ(found.size(), kMenuBar.size());
}

TEST_F(MenuTest, WhatHasNoCommandIsOffWithAndWithoutADocument) {
    const auto expectIdleItemsOff = [] {
        frmMain->Timer1_Timer();
        EnableImageMenus();
        for (const MenuItem* item : frmMain->Items()) {
            EXPECT_TRUE(item->HasCommand() || !item->Enabled()) << item->Name();
        }
    };
    expectIdleItemsOff();
    NewDocument(20, 30);
    expectIdleItemsOff();
}

TEST_F(MenuTest, AnItemLosesItsPlaceAmongTheUsableOnesWithItsCommand) {
    NewDocument(20, 30);
    frmMain->Timer1_Timer();
    EXPECT_TRUE(frmMain->mnuFlipV.Enabled());
    frmMain->mnuFlipV.Click = {};
    frmMain->DisableIdleItems();
    EXPECT_FALSE(frmMain->mnuFlipV.Enabled());
    frmMain->Timer1_Timer();
    EXPECT_FALSE(frmMain->mnuFlipV.Enabled());
    EXPECT_TRUE(frmMain->mnuFlipH.Enabled());
}

TEST_F(MenuTest, ArraysOfItemsHaveTheirCommand) {
    EXPECT_TRUE(frmMain->mnuColInc.Click);
    EXPECT_TRUE(frmMain->mnuColRed.Click);
    EXPECT_TRUE(frmMain->mnuZoomInX.Click);
    EXPECT_TRUE(frmMain->mnuZoomOutX.Click);
    EXPECT_TRUE(frmMain->mnuFileMRU.Click);
}

} // namespace pintalux
