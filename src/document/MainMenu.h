// All menus of the program. Commands act on the active document; what may be used is recomputed every 30 ms.
#pragma once

#include "document/Workspace.h"
#include "settings/RecentFiles.h"
#include "surface/window/Menu.h"

#include <memory>
#include <vector>

namespace pintalux {

class MDIForm;

/// Items of one kind that differ by an index.
class MenuArray {
  public:
    /// One item for each caption, named `name` and its index.
    MenuArray(const char* name, const std::vector<std::string>& captions);
    MenuItem& operator()(int index); ///< Error 9 outside.
    int Count() const { return static_cast<int>(items_.size()); }
    std::function<void(int Index)> Click;

  private:
    std::vector<std::unique_ptr<MenuItem>> items_;
};

/// "1:1" to "16:1", or "1:1" to "1:16": 1 to 16 between two texts.
std::vector<std::string> ZoomRatios(const char* before, const char* behind);

struct MainMenu {
    MainMenu();
    /// Puts the menus into the window's menu bar.
    void AddTo(MDIForm& window);
    /// Switches off what has no command. To be called once the commands are connected.
    void DisableIdleItems();
    /// The items that were put into menus, in their order from top to bottom; without separators.
    const std::vector<MenuItem*>& Items() const { return items_; }

    MenuItem mnuFile{"mnuFile", "&Ficheiro"};
    MenuItem mnuFileNew{"mnuFileNew", "&Nova", "Ctrl+N"};
    MenuItem mnuFileOpen{"mnuFileOpen", "&Abrir...", "Ctrl+O"};
    MenuItem mnuFileClose{"mnuFileClose", "&Fechar", "Ctrl+W"};
    MenuItem mnuFileSave{"mnuFileSave", "&Salvar", "Ctrl+S"};
    MenuItem mnuFileSaveAs{"mnuFileSaveAs", "Salvar &Como..."};
    MenuItem mnuFileTwain{"mnuFileTwain", "Digitalizador"};
    MenuItem mnuFileAquire{"mnuFileAquire", "Digitalizar"};
    MenuItem mnuFileTSelect{"mnuFileTSelect", "Seleccionar Digitalizador"};
    MenuItem mnuFilePrinter{"mnuFilePrinter", "Impressora"};
    MenuItem mnuFilePrinterSetup{"mnuFilePrinterSetup", "Configurar Impressora"};
    MenuItem mnuFilePrinterPrint{"mnuFilePrinterPrint", "Imprimir", "Ctrl+P"};
    MenuItem mnuFileSaveOptions{"mnuFileSaveOptions", "Preferências"};
    MenuSeparator mnuFileBar5{"mnuFileBar5"};
    MenuItem mnuFileExit{"mnuFileExit", "&Sair", "Ctrl+Q"};
    RecentFilesMenu mnuFileMRU{mnuFile};

    MenuItem mnuEdit{"mnuEdit", "&Editar"};
    MenuItem mnuEditUndo{"mnuEditUndo", "&Desfazer", "Ctrl+D; Ctrl+Z"};
    MenuItem mnuEditRedo{"mnuEditRedo", "&Refazer", "Ctrl+Y"};
    MenuItem mnuEditCut{"mnuEditCut", "Cu&rtar", "Ctrl+X"};
    MenuItem mnuEditCopy{"mnuEditCopy", "&Copiar", "Ctrl+C"};
    MenuItem mnuEditPaste{"mnuEditPaste", "C&olar", "Ctrl+V"};
    MenuItem mnuEditPasteNew{"mnuEditPasteNew", "Colar como Nova Imagem"};
    MenuItem mnuEditSelectAll{"mnuEditSelectAll", "Seleccionar Tudo", "Ctrl+A"};
    MenuItem mnuEditSelectNone{"mnuEditSelectNone", "Limpar selecção"};
    MenuItem mnuEditClip{"mnuEditClip", "Monitor da area de transferência"};

    MenuItem mnuImage{"mnuImage", "&Imagem"};
    MenuItem mnuImageProperties{"mnuImageProperties", "Propriedades da Imagem"};
    MenuItem mnuFlipV{"mnuFlipV", "Viragem Vertical"};
    MenuItem mnuFlipH{"mnuFlipH", "Viragem Horizontal"};
    MenuItem mnuRotate90{"mnuRotate90", "Rodar 90 Graus"};
    MenuItem mnuRotate180{"mnuRotate180", "Rodar 180 Graus"};
    MenuItem mnuRotate270{"mnuRotate270", "Rodar 270 Graus"};
    MenuItem mnuResize{"mnuResize", "Redimensionar a Imagem"};
    MenuItem mnuAddBorders{"mnuAddBorders", "Inserir Bordos"};
    MenuItem mnuBorderWiz{"mnuBorderWiz", "Colocar Molduras"};
    MenuItem mnuFiltBrow{"mnuFiltBrow", "Filtros de Imagem"};
    MenuItem mnuIncCol{"mnuIncCol", "Incrementar Cor"};
    MenuArray mnuColInc{"mnuColInc", {"Vermelho", "Verde", "Azul"}};
    MenuItem mnuRedCol{"mnuRedCol", "Reduzir Cor"};
    MenuArray mnuColRed{"mnuColRed", {"Vermelho", "Verde", "Azul"}};

    MenuItem mnuView{"mnuView", "&Visualizar"};
    MenuItem mnuViewToolbar{"mnuViewToolbar", "&Caixa de ferramentas"};
    MenuItem mnuViewColorBox{"mnuViewColorBox", "Caixa de Cor"};
    MenuItem mnuViewSettingsBar{"mnuViewSettingsBar", "Acertos"};
    MenuItem mnuViewRulers{"mnuViewRulers", "Reguas"};
    MenuItem mnuZoomActual{"mnuZoomActual", "Tamanho actual"};
    MenuItem mnuZoomIn{"mnuZoomIn", "Ampliar Imagem"};
    MenuArray mnuZoomInX{"mnuZoomInX", ZoomRatios("", ":1")}; ///< Index 0 is 1:1, 15 is 16:1.
    MenuItem mnuZoomOut{"mnuZoomOut", "Diminuir Imagem"};
    MenuArray mnuZoomOutX{"mnuZoomOutX", ZoomRatios("1:", "")}; ///< Index 0 is 1:1, 15 is 1:16.

    MenuItem mnuWindow{"mnuWindow", "&Janelas"};
    MenuItem mnuWindowNewWindow{"mnuWindowNewWindow", "&Nova Janela"};
    MenuItem mnuWindowCascade{"mnuWindowCascade", "&Cascata"};
    MenuItem mnuWindowTileHorizontal{"mnuWindowTileHorizontal", "Colagem &Horizontal"};
    MenuItem mnuWindowTileVertical{"mnuWindowTileVertical", "Colagem &Vertical"};

  private:
    void Build();
    void Fill(MenuItem& menu, const std::vector<MenuItem*>& items);
    void Fill(MenuItem& menu, MenuArray& items);

    std::vector<MenuItem*> items_;
    Registered<MainMenu>::Entry entry_{TheWorkspace.menu, *this};
};

} // namespace pintalux
