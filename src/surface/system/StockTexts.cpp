#include "surface/system/StockTexts_native.h"

#include <QDir>
#include <QTranslator>

// The resource lies in a static library, whose initialisers nobody runs; the toolkit wants this outside of
// namespaces.
static void RegisterTexts() {
    Q_INIT_RESOURCE(stock);
}

namespace pintalux {

bool LoadStockTexts(QTranslator& translator) {
    RegisterTexts();
    return translator.load(":/texts/stock_pt_PT.qm");
}

} // namespace pintalux
