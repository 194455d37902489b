// Slow, obvious models of the frames: column by column, pixel by pixel, in the order in which a frame is
// defined.
#pragma once

#include "imageops/FilterModels.h"

#include <cstdint>
#include <functional>

namespace pintalux {

/// A work and a live surface, and every frame that is painted on the live one.
class FrameModel {
  public:
    FrameModel(ModelSurface workSurface, ModelSurface liveSurface)
        : work(std::move(workSurface)), live(std::move(liveSurface)) {}

    void Plain(int size, Colour colour, bool outer, bool inner);
    void Bevel(int size, int highlight, int shadow, bool outer, bool inner);
    void FadedBevel(int size, int highlight, int shadow, bool outer, bool inner);
    void Mould(int size, int frameSize, Colour colour);
    void InnerMould(int s, int f);
    void Ridge(int size, bool outer, bool inner, bool inward);
    void DrawOuterLine();
    void DrawInsetRect(int k, Colour colour);

    ModelSurface work;
    ModelSurface live;

  private:
    enum class Side { Top, Bottom, Left, Right };
    /// Treats a pixel; false ends the band's loop in this column.
    using Treat = std::function<bool(Side side, int x, int y)>;
    void MitreWalk(int s, const Treat& treat, const std::function<void(int x)>& afterColumn = {});
    void Lines(int s, bool outer, bool inner);
    bool Saturate(int x, int y, int by);
    bool Darken(int x, int y, int by, bool cut);
    void Land();

    int W() const { return live.Width(); }
    int H() const { return live.Height(); }
};

} // namespace pintalux
