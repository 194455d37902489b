// The toolkit half of the multiple-document main window.
#pragma once

#include "surface/window/MDIForm.h"

#include <QAction>
#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>

#include <vector>

namespace pintalux {

struct MDINative {
    struct Panel {
        Surface* surface;
        Align edge;
    };

    explicit MDINative(MDIForm& owner) : form(owner) {}

    MDIForm& form;
    QPointer<QWidget> frame; ///< Below the menu bar: the panels around the area.
    QPointer<QMdiArea> area;
    std::vector<Panel> panels;
    Form* active = nullptr;
    MenuItem* windowList = nullptr;
    std::vector<QPointer<QAction>> listEntries;
    int placed = 0;         ///< Document windows shown so far; each starts a step further down.
    bool switching = false; ///< The program changes the active window; the toolkit's reports are no news.
    bool closing = false;
    bool layingOut = false;

    void MakeWindow();
    QMainWindow* Window() const;

    /// Makes a shown document window the active one, at once.
    void Activate(Form& child);
    /// Takes an unloaded document window off the screen; the one that was active before follows it.
    void TakeOut(Form& child);
    /// The document window that was made last, but for one that goes; for when all of them are minimised.
    Form* LastMinimised(const Form& gone) const;
    void ActivatedByToolkit(const QWidget* window);
    void ConnectKeys();
    QPoint NextPlace();

    /// Gives panels and area their places; a panel whose size changed hears of it, but for the one just
    /// assigned.
    void LayOut(const Surface* assigned = nullptr);
    /// The panels whose size changed.
    std::vector<Surface*> PlacePanels();

    void RefreshWindowList();

    /// Document windows that show and are not minimised, the active one last.
    std::vector<Form*> Arrangeable() const;
};

} // namespace pintalux
