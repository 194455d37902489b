// The tools by number: the position of their button on `TB2`.
#pragma once

namespace pintalux {

enum Tool : int {
    kPointerTool = 12, ///< No action on the image.
    kSelectTool = 13,
    kFreeSelectTool = 14,
    kPenTool = 15,
    kEraserTool = 16,
    kFloodTool = 17,
    kLineTool = 18,
    kPolyLineTool = 19,
    kShapesTool = 20,
    kColorWandTool = 21,
    kColorPickTool = 22,
    kMagTool = 23,
    kTextTool = 24,
};
inline constexpr int kLastTool = kTextTool;

} // namespace pintalux
