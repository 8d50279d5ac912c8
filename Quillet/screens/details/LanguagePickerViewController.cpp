#include "Quillet/screens/details/LanguagePickerViewController.h"

#include "Quillet/screens/details/LanguagePickerCell.h"
#include "Quillet/screens/details/Languages.h"
#include "platform/screens/list/GroupedForm.h"
#include "platform/screens/list/ListView.h"

#include <QtCore/QTimer>
#include <QtWidgets/QVBoxLayout>

namespace quillet {

using Mode = LanguagePickerViewControllerMode;

LanguagePickerViewController::LanguagePickerViewController(Mode mode, QWidget* parent)
    : ViewController(parent)
    , m_mode(mode)
    , m_languages(Languages::shared().languages(), std::nullopt) {}

void LanguagePickerViewController::setSelectedLanguage(const std::optional<QString>& language) {
    m_languages.setSelectedOption(language);
}

void LanguagePickerViewController::viewDidLoad() {
    ViewController::viewDidLoad();
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    if (m_mode == Mode::select)
        showChoice();
    else
        showSwitches();
}

void LanguagePickerViewController::showChoice() {
    auto* list = new platform::ListView(this);
    list->setAccessibleName(QStringLiteral("Languages"));
    list->cardColor = platform::Asset::AshgroveWhite;
    list->setModel(&m_languages);
    connect(list, &platform::ListView::rowActivated, this, &LanguagePickerViewController::choose);
    layout()->addWidget(list);
    setFocusProxy(list);
    const auto at = m_languages.stringList().indexOf(selectedLanguage().value_or(QString()));
    if (at < 0) return;
    list->setCurrentIndex(m_languages.index(static_cast<int>(at)));
    // Where the rows stand is known once they have their room.
    QTimer::singleShot(0, list,
                       [list] { list->scrollTo(list->currentIndex(), QAbstractItemView::PositionAtCenter); });
}

void LanguagePickerViewController::showSwitches() {
    auto* form = new platform::GroupedForm(this);
    form->cardColor = platform::Asset::AshgroveWhite;
    auto& section = form->addSection(
        {}, QStringLiteral("The languages you turn off here will be hidden throughout the app."));
    for (const QString& name : m_languages.stringList())
        section.addWidget(new LanguagePickerCell(name));
    layout()->addWidget(form);
}

void LanguagePickerViewController::choose(const QModelIndex& index) {
    const QString language = index.data().toString();
    setSelectedLanguage(language);
    if (delegate) delegate->didPickLanguage(language);
}

} // namespace quillet
