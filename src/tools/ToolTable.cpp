#include "tools/ToolTable.h"

namespace pintalux {

ToolTable::ToolTable(std::initializer_list<std::span<const Tool>> tables) : entry_(TheTools, *this) {
    for (const auto table : tables) {
        for (const Tool& tool : table)
            rows_.at(static_cast<std::size_t>(tool.number)) = tool;
    }
}

const Tool& ToolTable::Row(int number) const {
    if (number < 0 || number > kLastTool) throw RuntimeError(kSubscriptOutOfRange);
    return rows_[static_cast<std::size_t>(number)];
}

std::vector<ToolBar::Row> ToolTable::Buttons() const {
    std::vector<ToolBar::Row> buttons;
    for (int number = kFirstTool; number <= kLastTool; ++number) {
        const Tool& tool = Row(number);
        buttons.push_back({tool.key, tool.toolTip, tool.icon, ButtonStyle::ButtonGroup, tool.caption});
    }
    return buttons;
}

int ToolTable::ToolOfPage(int page, int current) const {
    if (Row(current).page == page) return current;
    for (const Tool& tool : rows_) {
        if (tool.page == page) return tool.number;
    }
    return 0;
}

} // namespace pintalux
