// The sample of a dialog: a small copy of what the operation would work on, to try it on.
#pragma once

#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Surface.h"

#include <functional>

namespace pintalux {

/// A part of the dialogs that show one. All measures are twips.
struct SampleParts {
    /// The controls of a form, laid out by the form; `SampleArea` holds all that is seen.
    explicit SampleParts(Form& form);

  private:
    Form& form_;

  public:
    Label lblSample{form_, "lblSample", "Amostra"}; ///< Heads the sample.
    Surface SampleArea{form_, "SampleArea"};
    ShapeControl ShBG{SampleArea, "ShBG"};
    Display imgSample{SampleArea, "imgSample"};
    Surface picsource{form_, "picsource"}, PicDest{form_, "PicDest"}; ///< Work and result, never visible.

    double SampleScale = 1; ///< Pixels of the image in one of the sample; below 1 if the sample is larger.

    /// Prepares the sample from the work surface of the command. Costs what the sample has pixels, not the
    /// image.
    void Startup(Surface& source);

    /// Runs an operation on `picsource` and `PicDest` and shows its result; the next one starts from the
    /// untouched sample again. The form is not repainted meanwhile, and the main window's progress bar is
    /// hidden. A sample without pixels runs nothing.
    void Preview(const std::function<void()>& operation);

    /// Shows the untouched sample.
    void ShowUntouched();

  private:
    void SizeSample(double width, double height);
    void PlaceSample();

    Picture untouched_; ///< The sample before any operation; in memory, so that no disk can fail it.
};

} // namespace pintalux
