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
    /// The folder in which all instances of this user meet, wherever their executables lie, without a
    /// trailing separator: $XDG_RUNTIME_DIR, else the system's for this user, else one below /tmp, made on
    /// demand for the user alone. Empty where there is none.
    const std::string& RunFolder() const;
    /// Whether another instance of this user holds the lock file of the run folder, first come first served;
    /// the lock dies with the process. Each call asks anew until this instance has the lock, which it then
    /// keeps.
    bool PrevInstance() const;
    /// Whether another instance holds it now; this one does not take it.
    bool OthersRun() const;
    /// The command line behind the program's name, as one text: the arguments joined by a blank, as they
    /// stand.
    std::string Command() const;
    void CommandForTests(std::string command);
};
extern AppObject App;

} // namespace pintalux
