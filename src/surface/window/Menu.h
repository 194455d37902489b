// Menu items and arrays of them.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace pintalux {

struct MenuNative;

/// An item, or a menu if it has items. Captions mark the access key by an ampersand.
class MenuItem {
  public:
    /// `shortcut` may name several, parted by "; "; the first one shows. None acts while a button of the
    /// mouse is held, since a stroke or a drag is under way then.
    MenuItem(std::string name, std::string caption, const std::string& shortcut = {});
    ~MenuItem();
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;

    const std::string& Name() const { return name_; }
    const std::string& Caption() const { return caption_; }
    void Caption(std::string value); ///< Of a very long one the menu shows both ends.
    bool Enabled() const { return enabled_; }
    void Enabled(bool value); ///< Keeping the value costs nothing: the poll sets it 33 times a second.
    bool Checked() const { return checked_; }
    void Checked(bool value);
    bool Visible() const { return visible_; }
    void Visible(bool value);

    /// Appends an item; it must outlive this one or be removed first.
    void Add(MenuItem& item);
    void AddSeparator();
    /// Puts `item` right behind `after`, which is an item of this menu.
    void InsertAfter(MenuItem& after, MenuItem& item);
    void Remove(MenuItem& item);

    std::function<void()> Click;
    /// It does something when it is chosen, or opens a menu.
    bool HasCommand() const;

    MenuNative& Native() const { return *native_; }

  private:
    std::string name_, caption_;
    bool enabled_ = true, checked_ = false, visible_ = true;
    std::unique_ptr<MenuNative> native_;
};

/// A separator that can be shown and hidden by name.
class MenuSeparator : public MenuItem {
  public:
    explicit MenuSeparator(std::string name);
};

} // namespace pintalux
