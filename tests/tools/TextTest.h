// The text tool: the fixture of its tests.
#pragma once

#include "support/DialogScript.h"
#include "tools/frmText.h"
#include "tools/ToolTest.h"

namespace pintalux {

class TextTest : public ToolTest {
  protected:
    /// Chooses the tool and does something with its dialog, which must be gone or hidden afterwards.
    static void WithDialog(std::function<void()> act) {
        DialogScript script({[act = std::move(act)](QWidget&) { act(); }});
        Choose("Text");
    }

    /// Composes a text by the dialog, in the size of an entry of the list, and confirms it.
    static void Compose(const std::string& text, int sizeIndex = 9) {
        WithDialog([&] {
            frmText->rtftext.Text(text);
            frmText->ComboSize.ListIndex(sizeIndex);
            frmText->Command2_Click();
        });
    }

    /// Pixels of an image that are not white.
    static int InkIn(const Picture& picture) {
        int count = 0;
        for (int y = 0; y < picture.Height(); ++y) {
            for (int x = 0; x < picture.Width(); ++x)
                count += picture.At(x, y) != 0xFFFFFF ? 1 : 0;
        }
        return count;
    }

    /// A blank picture with the label's text printed on it, as a surface prints.
    static Picture Printed(const Label& label, int width, int height, double x, double y) {
        Surface surface(frmMain->ToolsTB, "printed");
        surface.Move(0, 0, width, height);
        surface.FontName(label.FontName());
        surface.FontSize(label.FontSize());
        surface.FontBold(label.FontBold());
        surface.FontItalic(label.FontItalic());
        surface.FontUnderline(label.FontUnderline());
        surface.FontStrikethru(label.FontStrikethru());
        surface.ForeColor(label.ForeColor());
        surface.CurrentX(x);
        surface.CurrentY(y);
        surface.Print(label.Caption());
        return surface.Image();
    }
};

} // namespace pintalux
