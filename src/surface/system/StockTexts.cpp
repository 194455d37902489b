#include "surface/system/StockTexts_native.h"

#include <string>
#include <unordered_map>

namespace pintalux {

namespace {

std::string KeyOf(const char* context, const char* english) {
    return std::string(context) + '\n' + english;
}

std::unordered_map<std::string, const char*> WholeTable() {
    std::unordered_map<std::string, const char*> table;
    for (const auto texts :
         {ButtonTexts(), WindowTexts(), FileDialogTexts(), ColourDialogTexts(), PrintTexts()})
        for (const StockText& text : texts)
            table.emplace(KeyOf(text.context, text.english), text.portuguese);
    return table;
}

} // namespace

const char* PortugueseFor(const char* context, const char* english) {
    static const std::unordered_map<std::string, const char*> kTable = WholeTable();
    const auto found = kTable.find(KeyOf(context, english));
    return found == kTable.end() ? nullptr : found->second;
}

QString StockTranslator::translate(const char* context, const char* sourceText, const char*, int) const {
    if (context == nullptr || sourceText == nullptr) return {};
    return QString::fromUtf8(PortugueseFor(context, sourceText)); // null stays null: the English text shows
}

} // namespace pintalux
