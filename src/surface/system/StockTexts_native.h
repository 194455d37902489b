// The texts of the toolkit's own dialogs and menus in the Portuguese of Portugal. The toolkit ships none.
#pragma once

#include <QTranslator>
#include <span>

namespace pintalux {

/// One text: the toolkit's class or form that shows it, its English, ours.
struct StockText {
    const char* context;
    const char* english;
    const char* portuguese;
};

// The tables, by what shows them.
std::span<const StockText> ButtonTexts();
std::span<const StockText> WindowTexts();
std::span<const StockText> FileDialogTexts();
std::span<const StockText> ColourDialogTexts();
std::span<const StockText> PrintTexts();

/// Our text, or null where we have none.
const char* PortugueseFor(const char* context, const char* english);

/// Gives the toolkit our texts; what we lack stays English.
class StockTranslator final : public QTranslator {
  public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override;
};

} // namespace pintalux
