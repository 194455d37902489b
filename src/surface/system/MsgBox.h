// Message boxes with Portuguese buttons.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace pintalux {

enum class BoxButtons { Ok, YesNo, YesNoCancel };
enum class BoxIcon { None, Critical, Question, Exclamation, Information };
enum class BoxAnswer { Ok, Cancel, Yes, No };

inline constexpr const char* kMessageTitle = "VALMERO Multimédia";

enum class BoxDefault { First, Last };

/// Shows a modal box over the active window and gives the answer; closing it counts as Cancel where there is
/// one, as No for Yes and No, as OK else. The first letters of Yes, No and Cancel press them, with Alt or
/// alone. Where the first answer would lose something the last one is the default button. An empty title is
/// the application's.
BoxAnswer MsgBox(const std::string& text, BoxButtons buttons = BoxButtons::Ok, BoxIcon icon = BoxIcon::None,
                 const std::string& title = {}, BoxDefault defaultButton = BoxDefault::First);

/// The same with captions of the caller's own, from left to right; gives the place of the answer, from 0.
/// Their first letters press them. The last one is the default button, and what closing the box means.
std::size_t MsgBox(const std::string& text, const std::vector<std::string>& captions, BoxIcon icon,
                   const std::string& title = {});

} // namespace pintalux
