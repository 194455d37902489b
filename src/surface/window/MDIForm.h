// The multiple-document main window: a menu bar, panels along its edges, document windows in the middle.
#pragma once

#include "surface/window/Form.h"
#include "surface/window/Menu.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace pintalux {

class Surface;
struct MDINative;

enum class Align { Top, Bottom, Left, Right };

/// Where F6 leads.
struct FocusArea {
    const Control* area;            ///< Null: the active document.
    const Control* first = nullptr; ///< What F6 goes to in it; null: the first control that takes the focus.
};

class MDIForm : public Form {
  public:
    explicit MDIForm(std::string name);
    ~MDIForm() override;

    /// The user has dropped files on the window: their paths, in their order.
    std::function<void(const std::vector<std::string>& paths)> FilesDropped;

    /// The document window that has the focus, or had it last; null if there is none.
    Form* ActiveForm() const;
    /// 0 cascade, 1 tile horizontally (one above the other), 2 tile vertically (side by side). Error 5
    /// otherwise.
    void Arrange(int layout);

    /// Takes a document window in and loads it; it shows at its `Show`. `Form::Unload` of the child, its
    /// close box, and the unload of this window take it out and destroy it after the running handler.
    Form& Adopt(std::unique_ptr<Form> child);
    const std::vector<std::unique_ptr<Form>>& Children() const { return children_; }

    /// The least inside that a hand may give the window, in pixels.
    void LeastInside(int width, int height);

    void AddMenu(MenuItem& menu);
    /// The menu that ends with the list of the open windows.
    void WindowListMenu(MenuItem& menu);

    /// Fixes a panel (a surface whose parent is this window) along an edge; panels take their edge in the
    /// order of the calls. It keeps its own depth (`Height` at the top and bottom, `Width` at the sides) and
    /// disappears while not visible.
    void AlignPanel(Surface& panel, Align edge);

    /// The areas of the window in the order of F6 and, with their controls, of the Tab key; an area may lie
    /// in another one.
    void FocusAreas(std::vector<FocusArea> areas);
    /// A key of the window that no menu names, such as "F1".
    void OnKey(const std::string& key, std::function<void()> command);

  protected:
    /// Main window's own load, query and unload, named as their events are.
    virtual void MDIForm_Load() {}
    virtual void MDIForm_Unload() {}
    /// Asks every child; one refusal keeps everything open.
    void Form_QueryUnload(bool& Cancel) override;

  private:
    friend struct MDINative;
    void Form_Load() override { MDIForm_Load(); }
    void Form_Unload() override;

    std::unique_ptr<MDINative> mdi_;
    std::vector<std::unique_ptr<Form>> children_;
};

} // namespace pintalux
