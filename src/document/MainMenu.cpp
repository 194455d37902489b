#include "document/MainMenu.h"

#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "surface/window/MDIForm.h"

#include <functional>

namespace pintalux {

namespace {

using Row = std::reference_wrapper<MenuItem>;

void AddAll(MenuItem& menu, const std::vector<Row>& items) {
    for (MenuItem& item : items)
        menu.Add(item);
}

std::vector<std::string> Ratios(const char* before, const char* behind) {
    std::vector<std::string> captions;
    for (int n = 1; n <= 16; ++n)
        captions.push_back(before + NumberText(n) + behind);
    return captions;
}

const std::vector<std::string> kChannels = {"Vermelho", "Verde", "Azul"};

} // namespace

MenuArray::MenuArray(const char* name, const std::vector<std::string>& captions) {
    for (std::size_t i = 0; i < captions.size(); ++i) {
        items_.push_back(std::make_unique<MenuItem>(name + NumberText(static_cast<double>(i)), captions[i]));
        items_.back()->Click = [this, i] {
            if (Click) Click(static_cast<int>(i));
        };
    }
}

MenuItem& MenuArray::operator()(int index) {
    if (index < 0 || index >= static_cast<int>(items_.size())) throw RuntimeError(kSubscriptOutOfRange);
    return *items_[static_cast<std::size_t>(index)];
}

void MenuArray::AddTo(MenuItem& owner) {
    for (const auto& item : items_)
        owner.Add(*item);
}

MainMenu::MainMenu()
    : mnuFile("mnuFile", "&Ficheiro"), mnuFileNew("mnuFileNew", "&Nova", "Ctrl+N"),
      mnuFileOpen("mnuFileOpen", "&Abrir...", "Ctrl+O"), mnuFileClose("mnuFileClose", "&Fechar"),
      mnuFileSave("mnuFileSave", "&Salvar"), mnuFileSaveAs("mnuFileSaveAs", "Salvar &Como..."),
      mnuFileTwain("mnuFileTwain", "Digitalizador"), mnuFileAquire("mnuFileAquire", "Digitalizar"),
      mnuFileTSelect("mnuFileTSelect", "Seleccionar Digitalizador"),
      mnuFilePrinter("mnuFilePrinter", "Impressora"),
      mnuFilePrinterSetup("mnuFilePrinterSetup", "Configurar Impressora"),
      mnuFilePrinterPrint("mnuFilePrinterPrint", "Imprimir"),
      mnuFileSaveOptions("mnuFileSaveOptions", "Preferências"), mnuFileBar5("mnuFileBar5"),
      mnuFileExit("mnuFileExit", "&Sair"), mnuFileMRU(mnuFile),

      mnuEdit("mnuEdit", "&Editar"), mnuEditUndo("mnuEditUndo", "&Desfazer", "Ctrl+D"),
      mnuEditRedo("mnuEditRedo", "&Refazer"), mnuEditCut("mnuEditCut", "Cu&rtar", "Ctrl+X"),
      mnuEditCopy("mnuEditCopy", "&Copiar", "Ctrl+C"), mnuEditPaste("mnuEditPaste", "C&olar", "Ctrl+V"),
      mnuEditPasteNew("mnuEditPasteNew", "Colar como Nova Imagem"),
      mnuEditSelectAll("mnuEditSelectAll", "Seleccionar Tudo"),
      mnuEditSelectNone("mnuEditSelectNone", "Limpar selecção"),
      mnuEditClip("mnuEditClip", "Monitor da area de transferência"),

      mnuImage("mnuImage", "&Imagem"), mnuImageProperties("mnuImageProperties", "Propriedades da Imagem"),
      mnuFlipV("mnuFlipV", "Viragem Vertical"), mnuFlipH("mnuFlipH", "Viragem Horizontal"),
      mnuRotate90("mnuRotate90", "Rodar 90 Graus"), mnuRotate180("mnuRotate180", "Rodar 180 Graus"),
      mnuRotate270("mnuRotate270", "Rodar 270 Graus"), mnuResize("mnuResize", "Redimensionar a Imagem"),
      mnuAddBorders("mnuAddBorders", "Inserir Bordos"), mnuBorderWiz("mnuBorderWiz", "Colocar Molduras"),
      mnuFiltBrow("mnuFiltBrow", "Filtros de Imagem"), mnuIncCol("mnuIncCol", "Incrementar Cor"),
      mnuRedCol("mnuRedCol", "Reduzir Cor"), mnuColInc("mnuColInc", kChannels),
      mnuColRed("mnuColRed", kChannels),

      mnuView("mnuView", "&Visualizar"), mnuViewToolbar("mnuViewToolbar", "&Caixa de ferramentas"),
      mnuViewColorBox("mnuViewColorBox", "Caixa de Cor"), mnuViewSettingsBar("mnuViewSettingsBar", "Acertos"),
      mnuViewRulers("mnuViewRulers", "Reguas"), mnuZoomActual("mnuZoomActual", "Tamanho actual"),
      mnuZoomIn("mnuZoomIn", "Ampliar Imagem"), mnuZoomOut("mnuZoomOut", "Diminuir Imagem"),
      mnuZoomInX("mnuZoomInX", Ratios("", ":1")), mnuZoomOutX("mnuZoomOutX", Ratios("1:", "")),

      mnuWindow("mnuWindow", "&Janelas"), mnuWindowNewWindow("mnuWindowNewWindow", "&Nova Janela"),
      mnuWindowCascade("mnuWindowCascade", "&Cascata"),
      mnuWindowTileHorizontal("mnuWindowTileHorizontal", "Colagem &Horizontal"),
      mnuWindowTileVertical("mnuWindowTileVertical", "Colagem &Vertical") {
    BuildFileMenu();
    BuildEditMenu();
    BuildImageMenu();
    BuildViewMenu();
    BuildWindowMenu();
}

void MainMenu::BuildFileMenu() {
    AddAll(mnuFileTwain, {mnuFileAquire, mnuFileTSelect});
    AddAll(mnuFilePrinter, {mnuFilePrinterSetup, mnuFilePrinterPrint});
    AddAll(mnuFile, {mnuFileNew, mnuFileOpen, mnuFileClose});
    mnuFile.AddSeparator();
    AddAll(mnuFile, {mnuFileSave, mnuFileSaveAs});
    mnuFile.AddSeparator();
    AddAll(mnuFile, {mnuFileTwain, mnuFilePrinter});
    mnuFile.AddSeparator();
    AddAll(mnuFile, {mnuFileSaveOptions, mnuFileBar5, mnuFileMRU(0)});
    mnuFile.AddSeparator();
    mnuFile.Add(mnuFileExit);
    mnuFileBar5.Visible(false);
}

void MainMenu::BuildEditMenu() {
    AddAll(mnuEdit, {mnuEditUndo, mnuEditRedo});
    mnuEdit.AddSeparator();
    AddAll(mnuEdit, {mnuEditCut, mnuEditCopy, mnuEditPaste, mnuEditPasteNew});
    mnuEdit.AddSeparator();
    AddAll(mnuEdit, {mnuEditSelectAll, mnuEditSelectNone});
    mnuEdit.AddSeparator();
    mnuEdit.Add(mnuEditClip);
    for (MenuItem* off :
         {&mnuEditUndo, &mnuEditRedo, &mnuEditCut, &mnuEditCopy, &mnuEditPaste, &mnuEditPasteNew}) {
        off->Enabled(false);
    }
}

void MainMenu::BuildImageMenu() {
    mnuColInc.AddTo(mnuIncCol);
    mnuColRed.AddTo(mnuRedCol);
    mnuImage.Add(mnuImageProperties);
    mnuImage.AddSeparator();
    AddAll(mnuImage, {mnuFlipV, mnuFlipH, mnuRotate90, mnuRotate180, mnuRotate270});
    mnuImage.AddSeparator();
    AddAll(mnuImage, {mnuResize, mnuAddBorders, mnuBorderWiz});
    mnuImage.AddSeparator();
    AddAll(mnuImage, {mnuFiltBrow, mnuIncCol, mnuRedCol});
}

void MainMenu::BuildViewMenu() {
    AddAll(mnuView, {mnuViewToolbar, mnuViewColorBox, mnuViewSettingsBar, mnuViewRulers});
    mnuView.AddSeparator();
    AddAll(mnuView, {mnuZoomActual, mnuZoomIn, mnuZoomOut});
    mnuZoomInX.AddTo(mnuZoomIn);
    mnuZoomOutX.AddTo(mnuZoomOut);
    for (MenuItem* ticked : {&mnuViewToolbar, &mnuViewColorBox, &mnuViewSettingsBar})
        ticked->Checked(true);
    mnuZoomActual.Enabled(false);
}

void MainMenu::BuildWindowMenu() {
    AddAll(mnuWindow, {mnuWindowNewWindow});
    mnuWindow.AddSeparator();
    AddAll(mnuWindow, {mnuWindowCascade, mnuWindowTileHorizontal, mnuWindowTileVertical});
}

void MainMenu::AddTo(MDIForm& window) {
    for (MenuItem* menu : {&mnuFile, &mnuEdit, &mnuImage, &mnuView, &mnuWindow})
        window.AddMenu(*menu);
    window.WindowListMenu(mnuWindow);
}

} // namespace pintalux
