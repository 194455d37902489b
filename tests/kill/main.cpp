// seeded_edits: the program, offscreen, edited by a seed until it is killed; and the start after that.
//
//   seeded_edits edit <seed> <picture>...   opens the pictures and edits them for ever. It prints
//                                           "begin <state> <document> <digest>" of what an edit will show,
//                                           and "done <state> <document> <digest>" of what it shows at its
//                                           end. The state is 0 for the picture as it was opened.
//   seeded_edits recover <picture>          starts with the picture, opens what was left and prints
//                                           "open <states> <document> <digest>" for each.
#include "app/frmMain.h"
#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "document/FileCommands.h"
#include "document/frmImage.h"
#include "document/Recovery.h"
#include "document/States.h"
#include "document/UndoCommands.h"
#include "document/Workspace.h"
#include "imageops/ImageCommands.h"
#include "surface/system/App.h"
#include "surface/window/Events.h"
#include "surface/window/MDIForm.h"

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <random>
#include <string>
#include <sys/prctl.h>
#include <vector>

namespace pintalux {
namespace {

std::uint64_t DigestOf(const Picture& picture) {
    std::uint64_t digest = 14695981039346656037U;
    const auto take = [&digest](std::uint64_t value) { digest = (digest ^ value) * 1099511628211U; };
    take(static_cast<std::uint64_t>(picture.Width()));
    take(static_cast<std::uint64_t>(picture.Height()));
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x)
            take(picture.At(x, y));
    }
    return digest;
}

void Say(const char* word, int number, const frmImage& image, const Picture& picture) {
    std::printf("%s %d %s %016llx\n", word, number, image.Caption().c_str(),
                static_cast<unsigned long long>(DigestOf(picture)));
    std::fflush(stdout);
}

void Say(const char* word, int number, const frmImage& image) {
    Say(word, number, image, image.PicMerge.Image());
}

Picture FlippedAcross(const Picture& picture) {
    Picture flipped(picture.Width(), picture.Height(), 0);
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x)
            flipped.Set(picture.Width() - 1 - x, y, picture.At(x, y));
    }
    return flipped;
}

Picture TurnedByHalf(const Picture& picture) {
    Picture turned(picture.Width(), picture.Height(), 0);
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x)
            turned.Set(picture.Width() - 1 - x, picture.Height() - 1 - y, picture.At(x, y));
    }
    return turned;
}

int StateOf(const frmImage& image) {
    return ToInt32(Val(image.ListBUorder.List(image.ListBUorder.ListIndex())));
}

std::vector<frmImage*> Documents() {
    std::vector<frmImage*> documents;
    for (const auto& child : TheWorkspace.window->Children())
        documents.push_back(static_cast<frmImage*>(child.get()));
    return documents;
}

class Editor {
  public:
    explicit Editor(unsigned seed) : random_(seed) {}

    void EditOnce() {
        const std::vector<frmImage*> documents = Documents();
        frmImage& image = *documents[Below(documents.size())];
        image.Show();
        // Half of all is undo and redo, as quick as keys repeat.
        switch (Below(2) == 0 ? Below(2) : Below(8)) {
        case 0:
            Walk(image, -1);
            break;
        case 1:
            Walk(image, 1);
            break;
        case 2:
            Say("begin", image.ListBackup.ListCount(), image, FlippedAcross(image.PicMerge.Image()));
            mnuFlipH_Click();
            break;
        case 3:
            Say("begin", image.ListBackup.ListCount(), image, TurnedByHalf(image.PicMerge.Image()));
            mnuRotate180_Click();
            break;
        default:
            Fill(image);
        }
        Say("done", StateOf(image), image);
    }

  private:
    std::size_t Below(std::size_t count) { return random_() % count; }

    void Walk(frmImage& image, int step) {
        const std::string place = image.ListBUorder.List(image.ListBUorder.ListIndex() + step);
        if (!place.empty()) {
            const int state = ToInt32(Val(place));
            Say("begin", state, image, States().LoadState(image.ListBackup.List(state)));
        }
        step < 0 ? mnuEditUndo_Click() : mnuEditRedo_Click();
    }

    void Fill(frmImage& image) {
        const auto at = [this](int side) { return static_cast<int>(Below(static_cast<std::size_t>(side))); };
        const int width = image.PicMerge.PixelWidth();
        const int height = image.PicMerge.PixelHeight();
        image.PicMerge.LineBF(at(width), at(height), at(width), at(height),
                              static_cast<Colour>(Below(0x1000000)));
        Say("begin", image.ListBackup.ListCount(), image);
        image.Backup();
    }

    std::mt19937 random_;
};

void EditForEver(unsigned seed, const std::vector<std::string>& pictures) {
    for (std::size_t i = 1; i < pictures.size(); ++i)
        OpenDocument(pictures[i]);
    for (const frmImage* image : Documents())
        Say("done", 0, *image);
    Editor editor(seed);
    for (;;) {
        editor.EditOnce();
        QApplication::processEvents();
    }
}

// Presses the button that opens what was left, as soon as the question stands.
void PressYes() {
    QWidget* box = QApplication::activeModalWidget();
    if (box == nullptr) return;
    for (QPushButton* button : box->findChildren<QPushButton*>())
        if (button->text().remove('&') == "Sim") return button->click();
}

int ShowWhatCameBack() {
    QTimer presser;
    QObject::connect(&presser, &QTimer::timeout, PressYes);
    presser.start(5);
    while (frmMain->Timer2.Enabled())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const std::vector<frmImage*> documents = Documents();
    for (std::size_t i = 1; i < documents.size(); ++i) {
        Say("open", documents[i]->ListBUorder.ListCount(), *documents[i]);
    }
    std::fflush(stdout);
    std::_Exit(0);
}

int Run(const std::string& word, unsigned seed, const std::vector<std::string>& pictures) {
    KeepsRuns = true;
    App.CommandForTests(pictures.at(0));
    frmMain->Show();
    if (word == "recover") return ShowWhatCameBack();
    while (frmMain->Timer2.Enabled())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EditForEver(seed, pictures);
    return 0;
}

} // namespace
} // namespace pintalux

int main(int argc, char** argv) {
    prctl(PR_SET_PDEATHSIG, SIGKILL); // where the script dies, nobody else would end the edits
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    pintalux::Application application(argc, argv);
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() >= 3 && words[0] == "edit")
        return pintalux::Run("edit", static_cast<unsigned>(std::stoul(words[1])),
                             {words.begin() + 2, words.end()});
    if (words.size() == 2 && words[0] == "recover") return pintalux::Run("recover", 0, {words[1]});
    std::fputs("seeded_edits edit <seed> <picture>... | recover <picture>\n", stderr);
    return 2;
}
