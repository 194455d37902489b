// The one home of the program's end by an error: nothing that the user made may be lost.
#pragma once

#include "base/RuntimeError.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace pintalux {

/// Where the current image of a document lies complete on a disk.
struct RescuedImage {
    std::string path;
    bool madeNow = false; ///< A rescue file; otherwise the state file of what the document shows.
};

/// Sees to it that the current image of every open document lies complete on a disk: in its state file, or in
/// a rescue file where that one is missing, incomplete or older than what is on the screen. Gives one entry
/// for each document; a document that could be written nowhere is left out.
std::vector<RescuedImage> RescueDocuments();

/// The stop message for an error that nobody caught: rescues the documents and shows number, text and paths.
/// "Terminar" ends the process with code 1, and the files stay. "Continuar" takes the rescue files away and
/// returns: the handler is left, the program goes on; an error of the same handler and number is dropped for
/// a minute. At the start and at the end of the program there is "Terminar" alone.
void StopProgram(const RuntimeError& error);

/// The end at once, for `EndProgram`: rescues the documents, shows message and paths, ends the process with
/// code 1.
void EndWithMessage(const std::string& message, const std::string& title);

/// How the process ends; tests put their own in its place.
extern std::function<void(int code)> EndProcess;

/// The clock of the minute; tests put their own in its place.
extern std::function<std::chrono::steady_clock::time_point()> StopClock;

} // namespace pintalux
