// Pages with tabs.
#pragma once

#include "surface/window/Control.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace pintalux {

/// Pages with tabs. A control whose container is a page shows with it.
class SSTab : public Control {
  public:
    SSTab(Container& parent, std::string name, const std::vector<std::string>& captions);
    ~SSTab() override;
    Container& Page(int index);      ///< Error 9 outside. A page's unit is twips.
    int Tab() const { return tab_; } ///< The page in front, from 0.
    void Tab(int index);             ///< Error 380 outside. Runs `Click` if it changes.

  private:
    int tab_ = 0;
    std::vector<std::unique_ptr<Container>> pages_;
};

} // namespace pintalux
