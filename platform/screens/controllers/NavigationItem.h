#pragma once

#include "platform/screens/appearance/Palette.h"
#include "platform/screens/menus/Menu.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtGui/QKeySequence>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

// A button in a bar: a symbol or a text, and an action or a menu. Owned by its navigation item; main thread.
class BarButtonItem : public QObject {
    Q_OBJECT

public:
    struct Look {
        QString symbol;         // such as "plus"; without one the name is shown as text
        QString accessibleName; // what it does, in a word or two; the tool tip says it, too
        enum class Weight { Plain, Prominent } weight = Weight::Plain;
    };

    explicit BarButtonItem(Look look, std::function<void()> action = {}, QObject* parent = nullptr);

    const Look& look() const { return m_look; }

    void setAction(std::function<void()> action) { m_action = std::move(action); }

    // Runs the action, as a press does.
    void trigger() const;

    // With a menu a press opens that instead.
    const std::optional<Menu>& menu() const { return m_menu; }

    void setMenu(std::optional<Menu> menu);

    bool isEnabled() const { return m_isEnabled; }

    void setEnabled(bool isEnabled);

    // Busy with what its press began: a spinner stands in its place, and it takes no further press.
    bool isBusy() const { return m_isBusy; }

    void setBusy(bool isBusy);

    // Also shown in the tool tip. Works while the screen it belongs to is visible and not covered.
    const QKeySequence& shortcut() const { return m_shortcut; }

    void setShortcut(const QKeySequence& shortcut);

Q_SIGNALS:
    void changed();

private:
    Look m_look;
    std::function<void()> m_action;
    std::optional<Menu> m_menu;
    QKeySequence m_shortcut;
    bool m_isEnabled = true;
    bool m_isBusy = false;
};

// What a navigation controller's bar shows for one screen. Main thread.
class NavigationItem : public QObject {
    Q_OBJECT

public:
    enum class TitleSize { Inline, Large };

    const QString& title() const { return m_title; }

    void setTitle(const QString& title);

    TitleSize titleSize() const { return m_titleSize; }

    void setTitleSize(TitleSize size);

    // From the edge inward, on the leading side behind the back button, on the trailing side from the end.
    // What is added is owned by this item.
    BarButtonItem& addLeading(std::unique_ptr<BarButtonItem> item);
    BarButtonItem& addTrailing(std::unique_ptr<BarButtonItem> item);

    const std::vector<BarButtonItem*>& leading() const { return m_leading; }

    const std::vector<BarButtonItem*>& trailing() const { return m_trailing; }

Q_SIGNALS:
    void changed();

private:
    QString m_title;
    TitleSize m_titleSize = TitleSize::Inline;
    std::vector<BarButtonItem*> m_leading;
    std::vector<BarButtonItem*> m_trailing;
};

} // namespace platform
