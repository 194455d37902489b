// File names and the question whether a file is there: the base of opening, saving and the recent files.
#pragma once

#include <functional>
#include <string>

namespace pintalux {

/// The text behind the last separator; the whole text if there is none.
std::string FileNameOf(const std::string& path);

/// The text behind the name's last point, with a leading point if `withPoint`; empty if there is none: a
/// point before the last separator belongs to a folder.
std::string ExtensionOf(const std::string& path, bool withPoint);

/// The path up to, not including, the name's last point, then a point and `extension`. A point is put before
/// a nonempty extension that has none, and stays on the caller's text. Error 5 for a name without a point.
std::string ReplaceExtension(const std::string& path, std::string& extension);

/// The path up to the last separator, without a trailing one; empty if there is none.
std::string DirectoryOf(const std::string& path);

/// `path` itself if it does not exist; otherwise directory, base name, a number from 1 upward, extension: the
/// first that `FileExists` does not find.
std::string UniqueFileName(const std::string& path);

/// True when the file's date can be read. Errors 53, 68 and 76 mean false, and with them whatever says that
/// nobody gets through to the path. Any other ends the program by `EndProgram`, with its number and text
/// under the title "Erro".
bool FileExists(const std::string& path);

/// How the program ends at once: it first sees to it that nothing the user made is lost, then shows the
/// message with where that lies. Set by the program's start; tests put their own in its place.
extern std::function<void(const std::string& message, const std::string& title)> EndProgram;

/// The full path of an existing file with its links followed, so that one file has one name; the input where
/// there is no such file.
std::string LongFileName(const std::string& path);

/// A text file read field by field, as a reader of comma-separated text does: fields end at a comma or a line
/// end, a field in double quotes loses its quotes. Gives the fields joined with nothing between them.
std::string ReadTextFile(const std::string& path);

} // namespace pintalux
