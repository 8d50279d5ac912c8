#include "Quillet/screens/settings/LegacyView.h"

#include "platform/screens/controls/ButtonRole.h"
#include "platform/screens/controls/TextLabel.h"
#include "platform/screens/list/GroupedForm.h"
#include "platform/screens/list/ListView.h"

#include <QtCore/QEvent>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace quillet {

LegacyView::LegacyView(std::unique_ptr<LegacyModel> model, QWidget* parent)
    : ViewController(parent)
    , m_model(std::move(model))
    , m_headPlace(new QVBoxLayout)
    , m_head(new platform::GroupedForm(this))
    , m_button(new QPushButton(QStringLiteral("Migrate Data")))
    , m_rows(*m_model)
    , m_list(new platform::ListView(this)) {
    setTitle(QStringLiteral("Legacy Data"));
    m_list->setAccessibleName(QStringLiteral("Snippets"));
    m_list->setModel(&m_rows);
    for (QWidget* watched : {m_list->viewport(), m_head->viewport(), m_head->widget()})
        watched->installEventFilter(this);
    m_headPlace->addWidget(m_head);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(m_headPlace);
    column->addWidget(m_list, 1);
    addMigration();
    m_subscription = m_model->migrated().observe([this](bool isMigrated) { showMigrated(isMigrated); });
}

void LegacyView::addMigration() {
    auto& migration = m_head->addSection(QStringLiteral("Migration"));
    migration.addWidget(platform::makeLabel(
        QStringLiteral(
            "If you've used Quillet for a while its possible you have some missing data from an early "
            "build. If so, and you can see it in the list below, tap the button and it'll bring it "
            "over to the new data store. If you do this more than once, you will end up with "
            "duplicated data."),
        platform::TextStyle::Body, this));
    platform::setButtonRole(*m_button, platform::ButtonRole::Prominent);
    connect(m_button, &QPushButton::clicked, this, [this] { m_model->migrate(); });
    migration.addWidget(m_button);
}

void LegacyView::showMigrated(bool isMigrated) {
    if (isMigrated && m_button->hasFocus()) m_list->setFocus(Qt::OtherFocusReason);
    m_button->setVisible(!isMigrated);
}

void LegacyView::viewDidLayoutSubviews() {
    ViewController::viewDidLayoutSubviews();
    fitHead();
}

// The head is as high as its content, but leaves half of a low window to the list and scrolls then.
void LegacyView::fitHead() {
    const int wanted = m_head->widget()->heightForWidth(m_head->width());
    m_head->setFixedHeight(std::min(wanted, height() / 2));
}

bool LegacyView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) fitHead(); // its content has become higher or lower
    if (event->type() == QEvent::Resize && watched != m_head->widget()) alignHead();
    return ViewController::eventFilter(watched, event);
}

// The cards of head and list are of one width, whichever of the two has a scroll bar beside it.
void LegacyView::alignHead() {
    const auto barOf = [](const QAbstractScrollArea& area) {
        return area.width() - area.viewport()->width();
    };
    const int margin = std::max(barOf(*m_list) - barOf(*m_head), 0);
    const bool isLeftToRight = layoutDirection() == Qt::LeftToRight;
    m_headPlace->setContentsMargins(isLeftToRight ? 0 : margin, 0, isLeftToRight ? margin : 0, 0);
}

} // namespace quillet
