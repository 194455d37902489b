// Windows: dialogs and document windows.
//
// A form is loaded by the first reference to one of its members (through `AutoForm`), runs `Form_Load` once
// per load, and may refuse its unload in `Form_QueryUnload`. A form that unloads itself inside one of its
// handlers lives until that handler is over.
#pragma once

#include "surface/window/Control.h"

#include <functional>
#include <memory>
#include <string>

namespace pintalux {

enum WindowStateValue : int { kNormal = 0, kMinimised = 1, kMaximised = 2 };

/// What a document window's frame counts, in twips: a client area of 300 by 300 pixels is a `Width` of
/// 300 * 15 + 120 = 4620 and a `Height` of 300 * 15 + 420 = 4920.
// Intended: the frame of a document window counts 120 by 420 twips whatever the desktop draws, so that a
// window fits its image by the same sum on every desktop.
inline constexpr int kChildFrameWidth = 120;
inline constexpr int kChildFrameHeight = 420;

struct FormNative;

class Form : public Container {
  public:
    /// The stations of a form, which it passes from left to right:
    ///
    ///     Made --RunLoad--> Loaded --first showing--> Shown
    ///                         \                        /
    ///                          \------- Unload -------/
    ///                                     |
    ///                                 Unloading --granted--> Gone
    ///
    /// A load that fails leads back to Made. An unload that is refused or fails leads back to where it began.
    /// A form that was hidden is still Shown; `Visible` tells whether it shows. Nothing leads back from Gone.
    enum class Life { Made, Loaded, Shown, Unloading, Gone };

    enum class Kind {
        Dialog, ///< Fixed size, close box only.
        Window, ///< A dialog that can be resized.
        Splash, ///< No caption, centred on the screen.
        Child,  ///< A document window; `MDIForm::Adopt` takes it in.
        Main,   ///< The main window; made by `MDIForm`.
    };
    Form(std::string name, Kind kind);
    ~Form() override;

    const std::string& Caption() const { return caption_; }
    void Caption(std::string value);
    /// Marks a document window as changed since it was saved, by the desktop's own means; `Caption` stays.
    void Modified(bool value);
    int WindowState() const;
    void WindowState(int value);

    /// Shows the form and, at its first showing, lays it out. Loads it before, if need be. Returns at once.
    void Show();
    /// Shows a dialog over the active window and returns when it was hidden or unloaded. Timers go on.
    void ShowModal();
    void Hide();
    /// Unloads the form: `Form_QueryUnload` may refuse, then `Form_Unload` runs. True if it is gone.
    bool Unload();
    /// Whether the form is still loaded (false after a granted unload).
    bool Loaded() const { return life_ != Life::Made && life_ != Life::Gone; }

    /// An opaque handle for `LockWindowUpdate` and the like.
    Control* hWnd() { return this; }
    void IconResource(const std::string& resource);

    int PixelWidth() const override;
    int PixelHeight() const override;

    /// For `AutoForm` and the main window.
    void RunLoad();
    std::function<void()> AfterUnload;

    // Width and height are those of the window: client size in twips plus `kChildFrameWidth` and
    // `kChildFrameHeight` for document windows, plain client size for the rest. Assigned values stay as they
    // are until the user or the desktop changes the window. While it is maximised an assignment does nothing.

  protected:
    virtual void Form_Load() {}
    virtual void Form_QueryUnload(bool& /*Cancel*/) {}
    virtual void Form_Unload() {}
    virtual void Form_Resize() {}
    virtual void Form_Activate() {}
    void Placed() override;
    void VisibleChanged() override;
    friend class MDIForm;
    friend struct FormNative;
    friend struct MDINative;

    Kind kind_;
    std::string caption_;
    bool modified_ = false;
    Life life_ = Life::Made;
    Life lifeIfRefused_ = Life::Made; ///< Where a running unload leads back to if it is refused.
    std::unique_ptr<FormNative> form_;
};

/// Keeps what was unloaded until no handler runs any more.
void Bury(std::unique_ptr<Form> form);

/// A form that loads itself when it is first used and again after it was unloaded.
template <class F>
class AutoForm {
  public:
    F* operator->() { return &**this; }
    F& operator*() {
        if (!form_) {
            form_ = std::make_unique<F>();
            form_->AfterUnload = [this] { Bury(std::move(form_)); };
            Load();
        }
        return *form_;
    }
    bool Loaded() const { return form_ != nullptr; }
    /// True if it is not loaded afterwards. Does not load it first.
    bool Unload() { return !form_ || form_->Unload(); }

  private:
    void Load() {
        try {
            form_->RunLoad();
        } catch (...) {
            Bury(std::move(form_)); // The next reference loads it anew.
            throw;
        }
    }
    std::unique_ptr<F> form_;
};

/// Keeps a window above all others, or not.
void KeepOnTop(Form& form, bool topmost);

/// Stops the repainting of one window; null releases it. Gives false, and does nothing, if another is locked.
/// Without a release the lock stays recorded, and what it held back is painted when the handler that took it
/// is over.
bool LockWindowUpdate(Control* window);

/// Keeps a document window that became larger within the workspace: one that is larger than that is cut to
/// its size (which runs `Form_Resize` nested), and then it is moved in. Does nothing to a maximised or
/// minimised one.
void StayInWorkspace(Form& window);

} // namespace pintalux
