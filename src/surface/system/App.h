// The running program: its folder, title, instance lock, start and event loop.
#pragma once

#include <memory>
#include <string>

namespace pintalux {

/// The program object. One per process, made in `main` (or in a test's) before any window object.
class Application {
  public:
    /// Starts the toolkit: own look (fixed light palette), Portuguese stock texts, X11 before Wayland when
    /// the user chose none.
    Application(int& argc, char** argv);
    ~Application();
    /// Runs the event loop until `Quit`; gives the exit code.
    int Run();
    void Quit(int code = 0);

  private:
    struct Native;
    std::unique_ptr<Native> native_;
};

struct AppObject {
    /// The program's folder, without a trailing separator: that of the executable if the user may write
    /// there, else $XDG_DATA_HOME/Pintalux64, made on demand for the user alone.
    std::string Path() const;
    /// Tests give the program a folder of their own; empty takes it back.
    void PathForTests(std::string path);
    std::string Title() const { return "Pintalux64"; }
    /// Whether another instance of this user runs: holds a lock file of the runtime directory, first come
    /// first served; the lock dies with the process. The answer is found at the first call and kept.
    bool PrevInstance() const;
    /// The command line behind the program's name, as one text: the arguments joined by a blank, as they
    /// stand.
    std::string Command() const;
    void CommandForTests(std::string command);
};
extern AppObject App;

} // namespace pintalux
