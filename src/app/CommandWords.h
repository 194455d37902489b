// The words that the command line answers in the terminal, without a window.
#pragma once

#include <optional>
#include <string>

namespace pintalux {

/// What `--help` and `--version` print, if such a word is all that was given and no file is called so: the
/// whole command line is a path otherwise.
std::optional<std::string> AnswerInTerminal(int argc, const char* const* argv);

/// The file of the command line, as far as it can be told before the toolkit has taken out its own options:
/// the one word. Empty if there are more, or if it is an option.
std::string LoneFile(int argc, const char* const* argv);

} // namespace pintalux
