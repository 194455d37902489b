// Slow, obvious models of the pixel routines: pixel by pixel, in the order in which the picture is defined,
// without rows, threads or tricks. Tests run a model beside its routine and compare every pixel.
#pragma once

#include "imageops/RandomNumbers.h"
#include "surface/raster/Bitmap.h"

#include <array>
#include <cstdint>
#include <vector>

namespace pintalux {

inline constexpr Colour kMaskKey = 0x8894A0; ///< Marks what lies outside a freehand outline.

/// Red, green and blue as the routines take a colour apart: by division and rounding, so that a high channel
/// lifts the next one. White gives 255, 0, 256.
std::array<std::int32_t, 3> SplitOf(Colour colour);

/// A surface: what it shows, the picture it stores, and how it takes a new one.
struct ModelSurface {
    explicit ModelSurface(Bitmap picture, Colour backColor = kWhite, bool takesSize = true)
        : shown(picture), stored(std::move(picture)), background(backColor), autoSize(takesSize) {}

    int Width() const { return shown.Width(); }
    int Height() const { return shown.Height(); }
    Colour GetPixel(int x, int y) const; ///< -1 outside.
    void SetPixel(int x, int y, Colour colour);
    void FilledBox(int x1, int y1, int x2, int y2, Colour colour); ///< Both corners belong to it.
    /// The assignment of a picture; the empty one leaves the background in the size there was.
    void Load(const Bitmap& picture);

    Bitmap shown;
    Bitmap stored;
    Colour background;
    bool autoSize;
};

/// A work and a live surface, and every routine that runs over the two. What the models are made of is open,
/// so that the model of a filter may stand beside its tests.
struct FilterModel {
    FilterModel(ModelSurface workSurface, ModelSurface liveSurface, bool freehand = false)
        : work(std::move(workSurface)), live(std::move(liveSurface)), freeSelActive(freehand) {}

    void Sharpen(int level);
    void Soften(int level);
    void Brightness(int level);
    void Grey();
    void Emboss(int level);
    void Invert();
    void ColourStep(int mode);
    void Scatter(int level, RandomNumbers& random);
    void Outline(int level);
    void Pixelate(int level);

    ModelSurface work;
    ModelSurface live;
    bool freeSelActive;
    double pbMax = 100; ///< What the routine tells the progress bar; may be negative.

    // The parts, in the order in which a model runs them.
    void ReadPixels();
    std::int32_t Px(int channel, int x, int y) const;
    double SplitSum(int channel, int x, int y, int d) const;
    void ApplyNearWhiteRule();
    void Write();
    void WriteHonouringMask();
    void Land(const ModelSurface& from);

    int W() const { return work.Width(); }
    int H() const { return work.Height(); }

    std::vector<std::vector<std::vector<std::int32_t>>> table_; ///< Channel, column, row; one more of both.
    std::int16_t PxX = 0;
    std::int16_t PxY = 0;
    std::int32_t PxR = 0;
    std::int32_t PxG = 0;
    std::int32_t PxB = 0;
};

/// Mirrors left to right for -1, else top to bottom.
void FlipModel(ModelSurface& destination, const ModelSurface& source, int horizontal);

/// Turns by `angle` degrees, which holds radians afterwards.
void RotateModel(const ModelSurface& source, ModelSurface& destination, double& angle);

} // namespace pintalux
