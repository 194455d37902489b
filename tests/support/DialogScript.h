// What the user does with the dialogs that a command will show, one step for each, in their order. A dialog
// beyond the script fails the test and is closed, so that an empty script shows that nothing is asked.
#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class QWidget;

namespace pintalux {

class DialogScript {
  public:
    using Step = std::function<void(QWidget& dialog)>;
    /// A dialog as the user saw it when it came.
    struct Seen {
        std::string
            icon; ///< Of a message box: "critical", "question", "exclamation", "information" or "none".
        std::string title;
        std::string text;    ///< Of a message box; of other dialogs the texts of the labels, line by line.
        std::string buttons; ///< Captions from left to right, with bars between them: "Sim|Não|Cancelar".
        bool operator==(const Seen&) const = default;
    };

    explicit DialogScript(std::vector<Step> steps = {});
    /// Fails the test if a step was left.
    ~DialogScript();
    DialogScript(const DialogScript&) = delete;
    DialogScript& operator=(const DialogScript&) = delete;

    std::size_t Count() const;
    /// The n-th dialog from 0; empty texts if it never showed.
    Seen Dialog(std::size_t n) const;

  private:
    struct State;
    std::shared_ptr<State> state_;
};

/// A message of the program.
inline DialogScript::Seen Message(const std::string& icon, const std::string& text,
                                  const std::string& buttons = "OK") {
    return {icon, "VALMERO Multimédia", text, buttons};
}

/// All four words of a message, for the failure's text.
void PrintTo(const DialogScript::Seen& seen, std::ostream* out);

/// While it lives no dialog stays longer than ten seconds: it fails the test by its title and text and is
/// closed. One that cannot be closed ends the run. Each program of tests has one.
class DialogWatch {
  public:
    DialogWatch();
    ~DialogWatch();
    DialogWatch(const DialogWatch&) = delete;
    DialogWatch& operator=(const DialogWatch&) = delete;

  private:
    struct Native;
    std::unique_ptr<Native> native_;
};

/// Fails the test and closes the dialog.
void FailOn(QWidget& dialog);

/// A step in a dialog of this class; any other fails the test.
template <class Dialog>
DialogScript::Step In(std::function<void(Dialog& dialog)> act) {
    return [act = std::move(act)](QWidget& shown) {
        auto* dialog = dynamic_cast<Dialog*>(&shown);
        if (dialog == nullptr) return FailOn(shown);
        act(*dialog);
    };
}

/// Presses the button with this text; an ampersand in its caption does not count.
void PressButton(QWidget& dialog, const std::string& text);
DialogScript::Step PressesButton(const std::string& text);
/// Closes the dialog by its close box.
DialogScript::Step ClosesDialog();
/// Types a path into a file dialog and accepts it, after choosing the filter of this index (from 1; 0 keeps
/// it).
DialogScript::Step ChoosesFile(const std::string& path, int filterIndex = 0);
/// Presses Escape.
DialogScript::Step PressesEscape();

} // namespace pintalux
