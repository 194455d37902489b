// The toolkit half of the multiple-document main window: the panels along its edges, the workspace between
// them, and which document window is the active one.
//
// The toolkit knows no active document window while a dialog or another program has the focus. The program
// needs one then too, so it keeps its own (`active`) and takes over what the toolkit reports of the user's
// choice.
#pragma once

#include "surface/window/Form_native.h"
#include "surface/window/MDIForm.h"

#include <QAction>
#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>

#include <vector>

namespace pintalux {

struct MDINative final : FormHost {
    struct Panel {
        Surface* surface;
        Align edge;
    };

    explicit MDINative(MDIForm& owner) : form(owner) {}

    MDIForm& form;
    QPointer<QWidget> frame; ///< Below the menu bar: the panels around the area.
    QPointer<QMdiArea> area;
    std::vector<Panel> panels;
    std::vector<FocusArea> areas;
    Form* active = nullptr;         ///< The document window that `ActiveForm` gives.
    MenuItem* windowList = nullptr; ///< The menu that ends with the list of the open windows; null: none.
    std::vector<QPointer<QAction>> listEntries; ///< Of that list; the first is the separator above it.
    int placed = 0;         ///< Document windows shown so far; each starts a step further down.
    bool switching = false; ///< The mark of a `FromUs`: the program changes the active window.
    bool layingOut = false; ///< The mark of a `FromUs`: the program places the panels.
    bool closing = false;   ///< The unload was granted: no document window follows the one that goes.

    void MakeWindow();
    QMainWindow* Window() const;

    void WhileShowing(const std::function<void()>& show) override;
    QPoint NextPlace() override;
    void Activate(Form& child) override;
    void Retitled() override { RefreshWindowList(); }
    /// The document window that was active before follows it.
    void TakeOut(Form& child) override;
    /// The document window that was made last, but for one that goes; for when all of them are minimised.
    Form* LastMinimised(const Form& gone) const;

    void ActivatedByToolkit(const QWidget* window);
    /// Ctrl+Tab and Ctrl+F6 go to the next document window, with Shift to the one before, wherever the focus
    /// is.
    void ConnectKeys();
    /// Tab and F6 (MDIFocus.cpp).
    void ConnectFocus();
    const QWidget* WidgetOfArea(const FocusArea& place) const;
    /// The place of the area that a widget lies in; -1 for none.
    int AreaOf(const QWidget* widget) const;
    /// Where the Tab key stops in an area, in its order.
    std::vector<QWidget*> TabStopsOf(int place) const;
    bool StepFocus(bool next);
    void StepArea(bool next);

    /// Gives the panels and the workspace their places and runs `Resize` of each panel whose size changed.
    /// The panel `assigned` is left out: the program gave it its size itself.
    void LayOut(const Surface* assigned = nullptr);
    /// The first half of it; gives the panels whose size changed.
    std::vector<Surface*> PlacePanels();

    /// Writes the list of the open windows anew.
    void RefreshWindowList();

    /// Document windows that show and are not minimised, the active one last.
    std::vector<Form*> Arrangeable() const;
};

} // namespace pintalux
