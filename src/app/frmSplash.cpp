#include "app/frmSplash.h"

namespace pintalux {

AutoForm<frmSplashForm> frmSplash;

namespace {

constexpr int kTicks = 3;
constexpr double kWidth = 480; // pixels
constexpr double kHeight = 300;

} // namespace

frmSplashForm::frmSplashForm() : Form("frmSplash", Kind::Splash) {
    Width(kWidth * kTwipsPerPixel);
    Height(kHeight * kTwipsPerPixel);
    picSplash.Move(0, 0, Width(), Height());
    picSplash.Art(":/splash.svg");
    Timer1.Tick = [this] { Timer1_Timer(); };
}

void frmSplashForm::Form_Load() {
    Timer1.Enabled(true);
}

void frmSplashForm::Timer1_Timer() {
    if (++ticks_ < kTicks) return;
    Timer1.Enabled(false);
    Unload();
}

} // namespace pintalux
