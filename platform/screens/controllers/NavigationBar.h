#pragma once

#include "platform/screens/controllers/NavigationItem.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <map>

namespace platform {

class BarButton;
class BarTitle;

// The bar on top of a navigation controller: a button back, the buttons and the title of the screen below it.
// A large title stands in the row of the buttons where nothing leads it, else in a row of its own. Main
// thread.
class NavigationBar : public QWidget {
    Q_OBJECT

public:
    struct Appearance {
        enum class Shadow { None, Line };

        Asset background = Asset::Card;
        Asset tint = Asset::Accent;
        Asset title = Asset::Text;
        Shadow shadow = Shadow::Line; // toward the content
    };

    explicit NavigationBar(QWidget* parent);

    void setAppearance(const Appearance& appearance);

    // Shows `item` from now on. `backTitle` names what lies below; without one there is no button back.
    void showItem(NavigationItem& item, const std::optional<QString>& backTitle);

    // The button of an item that is shown, as an anchor; null for another.
    QWidget* buttonOf(const BarButtonItem& item) const;

    QSize sizeHint() const override;

Q_SIGNALS:
    void backRequested();

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void refresh();
    void rebuildButtons();
    BarButton* makeBackButton();
    BarButton* makeButton(BarButtonItem& item);
    void layOut();
    int placeSide(const std::vector<BarButton*>& buttons, Qt::Alignment side);
    int rowHeight() const;
    bool hasTitleRow() const;

    Appearance m_appearance;
    QPointer<NavigationItem> m_item;
    std::optional<QString> m_backTitle;
    BarTitle* m_title;
    std::vector<BarButton*> m_leading;  // the button back first
    std::vector<BarButton*> m_trailing; // from the end
    std::map<const BarButtonItem*, BarButton*> m_buttons;
    bool m_isCurrent = false; // whether the buttons are those of the item
};

} // namespace platform
