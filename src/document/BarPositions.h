// The positions of the buttons on `TB2`, from 1, separators counted. The tools stand behind the commands, and
// a tool's position is its number: `CurrentTool` holds it.
#pragma once

namespace pintalux {

enum BarPosition : int {
    kNewButton = 1,
    kOpenButton,
    kSaveButton,
    kCutButton = 5,
    kCopyButton,
    kPasteButton,
    kUndoButton = 9,
    kRedoButton,
    kPointerTool = 12, ///< No action on the image.
    kSelectTool,
    kFreeSelectTool,
    kPenTool,
    kEraserTool,
    kFloodTool,
    kLineTool,
    kPolyLineTool,
    kShapesTool,
    kColorWandTool,
    kColorPickTool,
    kMagTool,
    kTextTool,
    kBarEnd ///< Behind the last tool.
};
inline constexpr int kFirstTool = kPointerTool;
inline constexpr int kLastTool = kBarEnd - 1;

} // namespace pintalux
