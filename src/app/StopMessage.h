// What happens when an error that nobody caught reaches the top: nothing that the user made may be lost.
#pragma once

#include "base/RuntimeError.h"

#include <functional>
#include <string>
#include <vector>

namespace pintalux {

/// Sees to it that the current image of every open document lies complete on a disk: in its state file, or in
/// a rescue file where that one is missing, incomplete or older than what is on the screen. Gives the paths,
/// one for each document; a document that could be written nowhere is left out.
std::vector<std::string> RescueDocuments();

/// The stop message: rescues the documents, shows number, text and paths, and ends the process with code 1.
/// The files stay.
void StopProgram(const RuntimeError& error);

/// How the process ends; tests put their own in its place.
extern std::function<void(int code)> EndProcess;

} // namespace pintalux
