// The toolkit half of a form: its window, and what of the window's own changes reaches the form.
#pragma once

#include "surface/window/Form.h"

#include <QEventLoop>
#include <QSize>

class QMdiSubWindow;

namespace pintalux {

struct MDINative;

struct FormNative {
    explicit FormNative(Form& owner) : form(owner) {}

    Form& form;
    MDINative* mdi = nullptr;    ///< The main window of a document window.
    QEventLoop* modal = nullptr; ///< Runs while the form is shown modally.
    bool placing = false;        ///< The program assigns; what the toolkit tells is no news.
    bool shown = false;          ///< Was shown once.
    bool unloading = false;
    bool sizeKept = false; ///< A size was assigned while minimised; it counts at the restoring.
    int state = kNormal;   ///< The state to show with.
    QSize heard;           ///< The client size that the last Form_Resize heard of.

    void MakeWindow();
    QMdiSubWindow* SubWindow() const;
    bool IsChild() const { return form.kind_ == Form::Kind::Child; }

    /// The client size that Width and Height stand for, in pixels, and the one that the window has.
    QSize WantedClient() const;
    QSize ActualClient() const;

    void Place();
    /// Gives a restored window the size that was assigned while it was minimised.
    void PlaceKeptSize();
    void SizeWindow();
    void TakeActualSize();
    void FirstShowing();
    void ShowWindow();
    void FocusFirst() const;
    /// Out of sight for good; the owner is told.
    void Finish();

    // What the toolkit reports.
    void Resized();
    void Moved();
    void StateChanged();
    void CloseBox();
    void Activated();

    /// Of `form`; null once the toolkit is gone.
    static FormNative& Of(Form& form) { return *form.form_; }
    void CentreOver(const QRect& area) const;
};

} // namespace pintalux
