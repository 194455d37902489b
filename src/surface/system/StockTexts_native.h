// The texts of the toolkit's own dialogs and menus in the Portuguese of Portugal, from `stock_pt_PT.ts`. The
// toolkit ships none.
#pragma once

class QTranslator;

namespace pintalux {

/// Gives the translator our texts, which lie in the program; what they lack stays English. False if they are
/// damaged.
bool LoadStockTexts(QTranslator& translator);

} // namespace pintalux
