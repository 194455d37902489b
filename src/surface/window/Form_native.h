// The toolkit half of a form: the window behind it, and what the window tells of itself.
//
// A form and its window influence each other. What the program assigns goes from the form to the window
// (`Place`, `ShowWindow`). What the user or the desktop does goes from the window to the form (`Resized`,
// `Moved`, `StateChanged`). The toolkit reports both, so a `FromUs` marks the first: while one exists the
// reports are ignored.
#pragma once

#include "surface/window/Events_native.h"
#include "surface/window/Form.h"

#include <functional>
#include <QPoint>
#include <QSize>

class QMdiSubWindow;

namespace pintalux {

/// What a document window needs of the window around it. Nothing else of that window is known here.
struct FormHost {
    virtual ~FormHost() = default;
    /// Runs `show`, which brings a document window to the screen, and does not take it for the user's choice.
    virtual void WhileShowing(const std::function<void()>& show) = 0;
    /// Where the next window without a place of its own begins, in pixels of the workspace.
    virtual QPoint NextPlace() = 0;
    /// Makes a document window that shows the active one, at once.
    virtual void Activate(Form& child) = 0;
    /// The caption of a document window changed.
    virtual void Retitled() = 0;
    /// Takes a document window that was unloaded off the screen.
    virtual void TakeOut(Form& child) = 0;
};

struct FormNative {
    explicit FormNative(Form& owner) : form(owner) {}

    Form& form;
    /// Where the Tab key leads; unset, or false: the toolkit decides.
    std::function<bool(bool next)> focusStep;
    FormHost* host = nullptr; ///< Of a document window; null for the others, and once the host is gone.
    bool placing = false;     ///< The mark of a `FromUs`: the program places or shows the window.
    bool sizeKept =
        false;           ///< A size was assigned while the window was minimised: it is taken at the restore.
    int state = kNormal; ///< The `WindowState` that the next showing takes.
    QSize heard;         ///< The client size in pixels that the last `Form_Resize` was run for.

    void LoseHost() {
        host = nullptr;
        focusStep = nullptr;
    }

    void MakeWindow();
    QMdiSubWindow* SubWindow() const;
    bool IsChild() const { return form.kind_ == Form::Kind::Child; }
    /// The life of the form; while it unloads, the one it had before.
    Form::Life& LastingLife() const;
    /// Whether the form was shown before; also while it unloads.
    bool WasShown() const { return LastingLife() == Form::Life::Shown; }

    /// The size of the client area that Width and Height ask for, in pixels.
    QSize WantedClient() const;
    /// The size of the client area that the window has, in pixels.
    QSize ActualClient() const;

    /// Gives the window the place and size of the form. Runs `Form_Resize` if the size is another.
    void Place();
    /// Gives a window that was restored the size that was assigned while it was minimised.
    void PlaceKeptSize();
    /// Sizes the window so that its client area is `WantedClient`, whatever the frame around it takes.
    void SizeWindow();
    /// Gives Width and Height the size that the window has.
    void TakeActualSize();
    /// Shows the window for the first time.
    void FirstShowing();
    /// Its beginning: gives the window its place and its size before it can be seen.
    void SizeAndMoveUnseen();
    void ShowWindow();
    /// Ends the life of the form: its window hides, its host and its owner are told.
    void Finish();

    // What the window tells.
    void Resized();
    void Moved();
    void StateChanged();
    void CloseBox();
    void Activated();

    static FormNative& Of(Form& form) { return *form.form_; }
};

} // namespace pintalux
