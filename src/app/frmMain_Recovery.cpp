// What a run that died has left is offered at the next start, behind the usual first document.
#include "app/frmMain.h"
#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "document/Recovery.h"
#include "files/FileNames.h"
#include "settings/RecentFiles.h"
#include "surface/system/App.h"
#include "surface/system/MsgBox.h"

namespace pintalux {

namespace {

std::string NameOf(const RunDocument& document) {
    return document.file.empty() ? document.caption : document.file;
}

std::string QuestionAbout(const std::vector<RunDocument>& documents) {
    constexpr std::size_t kMostNames = 12;
    const bool one = documents.size() == 1;
    std::string text = "O programa não terminou como devia e ";
    text += one ? "ficou uma imagem por salvar:"
                : "ficaram " + NumberText(static_cast<double>(documents.size())) + " imagens por salvar:";
    for (std::size_t i = 0; i < documents.size() && i < kMostNames; ++i)
        text += "\n" + NameOf(documents[i]);
    if (documents.size() > kMostNames) text += "\n...";
    return text + (one ? "\n\nDeseja abri-la? \"Não\" guarda-a para o próximo arranque."
                       : "\n\nDeseja abri-las? \"Não\" guarda-as para o próximo arranque.");
}

enum class Wish { Delete, Keep, Open };

Wish Ask(const std::vector<RunDocument>& documents) {
    const auto answer =
        MsgBox(QuestionAbout(documents), {"Apagar", "Não", "Sim"}, BoxIcon::Question, kMessageTitle);
    if (answer != 0) return answer == 1 ? Wish::Keep : Wish::Open;
    const auto sure = MsgBox("Apagar de vez o que ficou por salvar? Depois não há como voltar atrás.",
                             {"Apagar", "Não"}, BoxIcon::Exclamation, kMessageTitle);
    return sure == 0 ? Wish::Delete : Wish::Keep;
}

void OpenEach(const LeftDocuments& left) {
    // What cannot be opened now stays for the next start.
    for (const RunDocument& document : left.documents)
        ResumeNext([&] { OpenLeftDocument(document); });
    TakeLeftDocuments(left);
}

void Offer(const LeftDocuments& left) {
    switch (Ask(left.documents)) {
    case Wish::Delete:
        return DeleteLeftDocuments(left);
    case Wish::Keep:
        return KeepLeftDocuments(left);
    case Wish::Open:
        return OpenEach(left);
    }
}

std::set<std::string> PictureFolders(const LeftDocuments& left) {
    std::set<std::string> folders = RecentFolders();
    for (const RunDocument& document : left.documents)
        if (!document.file.empty()) folders.insert(DirectoryOf(document.file));
    return folders;
}

} // namespace

void frmMainForm::OfferRecovery() {
    const LeftDocuments left = FindLeftDocuments();
    if (!left.documents.empty()) {
        Offer(left);
    } else {
        DeleteLeftDocuments(left);
    }
    // Behind the question: nobody who comes back after a month finds his pictures gone.
    ResumeNext([&] { SweepOldFiles({App.Path()}, PictureFolders(left)); });
}

} // namespace pintalux
