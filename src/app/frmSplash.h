// The splash: a picture without a caption, on top of everything for three seconds.
#pragma once

#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Timer.h"

namespace pintalux {

class frmSplashForm : public Form {
  public:
    frmSplashForm();

    Display picSplash{*this, "picSplash"};
    Timer Timer1{1000}; ///< Ticks each second.

  protected:
    void Form_Load() override;

  private:
    void Timer1_Timer();
    int ticks_ = 0;
};

extern AutoForm<frmSplashForm> frmSplash;

} // namespace pintalux
