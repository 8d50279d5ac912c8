#include "Quillet/screens/details/ListWithSelectionViewController.h"

#include "Quillet/screens/details/OptionList.h"
#include "platform/screens/controllers/NavigationController.h"

#include <QtWidgets/QVBoxLayout>

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto debounce = 100ms;
constexpr QSize preferredSize(420, 510); // points

} // namespace

ListWithSelectionViewController::ListWithSelectionViewController(const QString& title,
                                                                 const QStringList& options,
                                                                 const std::optional<QString>& selectedOption,
                                                                 QWidget* parent)
    : ViewController(parent)
    , m_options(new OptionList(title, options, selectedOption, debounce, this)) {
    setTitle(title);
    setPreferredContentSize(preferredSize);
    setFocusProxy(m_options);
    connect(m_options, &OptionList::chosen, this, &ListWithSelectionViewController::choose);
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(m_options);
}

void ListWithSelectionViewController::viewDidLoad() {
    ViewController::viewDidLoad();
    if (isPushed()) return;
    navigationItem().addLeading(std::make_unique<platform::BarButtonItem>(
        platform::BarButtonItem::Look{{}, QStringLiteral("Close")}, [this] { didClose(); }));
}

// Whether another screen lies below it.
bool ListWithSelectionViewController::isPushed() const {
    const auto* navigation = navigationController();
    return navigation && navigation->viewControllers().front() != this;
}

void ListWithSelectionViewController::didClose() {
    if (isPushed())
        navigationController()->popViewController();
    else
        dismiss();
}

void ListWithSelectionViewController::choose(const QString& option) {
    if (delegate) delegate->didSelectOption(option);
    didClose();
}

} // namespace quillet
