#include "Quillet/controls/ModalTextFieldHost.h"

#include "Quillet/controls/SnippetNavigationController.h"

#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

// Points.
constexpr QSize popoverSize(375, 375);
constexpr int anchorFromLeading = 60;
constexpr int anchorFromBottom = 160;

platform::PopoverAnchor anchorOver(platform::ViewController& presenter) {
    const int x = presenter.isRightToLeft() ? presenter.width() - anchorFromLeading : anchorFromLeading;
    return {.view = &presenter,
            .rect = QRect(x, presenter.height() - anchorFromBottom, 0, 0),
            .arrow = Qt::BottomEdge};
}

} // namespace

ModalTextFieldHost::ModalTextFieldHost(const ModalTextFieldView::Texts& texts, OnEnter onEnter)
    : m_hosting(new platform::HostingController(
          std::make_unique<ModalTextFieldView>(texts, std::move(onEnter)), this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_hosting);
    setFocusProxy(&m_hosting->rootView());
    setTitle(texts.title);
    navigationItem().addLeading(std::make_unique<platform::BarButtonItem>(
        platform::BarButtonItem::Look{.symbol = {}, .accessibleName = tr("Cancel")}, [this] { dismiss(); }));
}

void ModalTextFieldHost::present(platform::ViewController& presenter, const ModalTextFieldView::Texts& texts,
                                 OnEnter onEnter) {
    auto navigation = std::make_unique<SnippetNavigationController>(
        std::make_unique<ModalTextFieldHost>(texts, std::move(onEnter)));
    navigation->modalPresentationStyle = platform::ModalPresentationStyle::Popover;
    navigation->setPreferredContentSize(popoverSize);
    navigation->popoverAnchor = anchorOver(presenter);
    presenter.present(std::move(navigation));
}

} // namespace quillet
