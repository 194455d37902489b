#include "surface/window/SSTab.h"

#include "base/RuntimeError.h"
#include "surface/window/Inputs_native.h"

#include <QTabWidget>

namespace pintalux {

namespace {

/// One page: a plain container of the size that the tabs leave.
class TabPage final : public Container {
  public:
    TabPage(Container* parent, std::string name, QTabWidget& tabs, const QString& caption)
        : Container(parent, std::move(name), kScaleTwips) {
        auto* page = new QWidget(&tabs);
        InstallWidget(*this, page);
        tabs.addTab(page, caption);
    }
    int PixelWidth() const override { return WidgetSize(*this).width(); }
    int PixelHeight() const override { return WidgetSize(*this).height(); }
};

} // namespace

SSTab::SSTab(Container& parent, std::string name, const std::vector<std::string>& captions)
    : Control(&parent, std::move(name)) {
    auto* widget = new QTabWidget(ClientWidgetOf(parent));
    InstallWidget(*this, widget, true);
    for (const std::string& caption : captions)
        pages_.push_back(std::make_unique<TabPage>(&parent, Name() + "_" + std::to_string(pages_.size()),
                                                   *widget, ToQString(caption)));
    QObject::connect(widget, &QTabWidget::currentChanged, widget, [this](int index) {
        if (index >= 0) TakeByHand(tab_, index, Click);
    });
}

SSTab::~SSTab() {
    if (auto* widget = WidgetAs<QTabWidget>(*this))
        QObject::disconnect(widget, &QTabWidget::currentChanged, widget, nullptr);
}

Container& SSTab::Page(int index) {
    if (index < 0 || index >= static_cast<int>(pages_.size())) throw RuntimeError(kSubscriptOutOfRange);
    return *pages_[static_cast<std::size_t>(index)];
}

void SSTab::Tab(int index) {
    const int last = static_cast<int>(pages_.size()) - 1;
    const auto show = [&](QTabWidget& tabs) { tabs.setCurrentIndex(index); };
    AssignValue(
        tab_, Within(index, 0, last), [&] { Quietly<QTabWidget>(*this, show); }, Click);
}

} // namespace pintalux
