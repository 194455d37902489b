// The running program for benchmarks, offscreen: folders of its own, documents, a hand.
#pragma once

#include "app/frmMain.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/Workspace.h"
#include "document/Zoom.h"
#include "settings/frmPrefs.h"
#include "surface/system/App.h"
#include "surface/window/Control_native.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <QApplication>
#include <QMouseEvent>
#include <string>
#include <unistd.h>

namespace pintalux {

inline constexpr int kLargeWidth = 6000;
inline constexpr int kLargeHeight = 4000;
inline constexpr int kViewWidth = 1280;
inline constexpr int kViewHeight = 800;

inline void Send(frmImage& image, QEvent::Type type, int x, int y, Qt::MouseButton button,
                 Qt::MouseButtons held) {
    QWidget& widget = *WidgetOf(image.Image1);
    QMouseEvent event(type, QPointF(x, y), QPointF(x, y), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

inline void PassEvents() {
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

/// A picture without shared tiles.
inline Picture Noise(int width, int height) {
    Picture picture(width, height, 0);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            picture.Set(x, y, static_cast<Pixel>(x * 131 + y * 70001) & 0xFFFFFF);
    return picture;
}

/// A document with a picture, in a window with a view of this size. Goes with the object.
class Document {
  public:
    Document(int width, int height, int viewWidth, int viewHeight) {
        NewImageMode = true;
        NewWidth = width;
        NewHeight = height;
        NewImageWindow();
        image = &ActiveImage();
        image->PicMerge.Picture(Noise(width, height));
        FitImageWindow();
        image->Width(viewWidth * 15 + 120);
        image->Height(viewHeight * 15 + 420);
        image->Picsize();
        PassEvents();
    }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    ~Document() {
        image->Unload();
        PassEvents();
    }

    /// The largest views have no scroll range in 16 bits; they show all the same.
    void Zoom(int level) const {
        try {
            level >= 15 ? mnuZoomInX_Click(level - 15) : mnuZoomOutX_Click(15 - level);
        } catch (const RuntimeError&) {
            LockWindowUpdate(nullptr);
        }
        PassEvents();
    }

    frmImage* image;
};

/// Folders of its own, so that no setting and no file of the user is touched.
class OwnFolders {
  public:
    OwnFolders()
        : root_(std::filesystem::temp_directory_path() / ("pintalux-bench-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(root_);
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "TMPDIR"})
            setenv(name, root_.c_str(), 1);
    }
    OwnFolders(const OwnFolders&) = delete;
    OwnFolders& operator=(const OwnFolders&) = delete;
    ~OwnFolders() { std::filesystem::remove_all(root_); }
    std::string Path() const { return root_.string(); }

  private:
    std::filesystem::path root_;
};

/// The `main` of a program of benchmarks.
inline int RunBenchmarks(int argc, char** argv) {
    const OwnFolders folders;
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    benchmark::Initialize(&argc, argv);
    Application application(argc, argv);
    App.PathForTests(folders.Path());
    App.CommandForTests("");
    *frmMain;
    frmMain->Timer2.Enabled(false);
    frmMain->Width((kViewWidth + 700) * 15);
    frmMain->Height((kViewHeight + 400) * 15);
    frmMain->Show();
    frmPrefs->Check4.Value(1);
    benchmark::RunSpecifiedBenchmarks();
    frmMain.Unload();
    frmPrefs.Unload();
    return 0;
}

} // namespace pintalux
