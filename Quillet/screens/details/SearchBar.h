#pragma once

#include <QtCore/QRegularExpression>
#include <QtWidgets/QLineEdit>

namespace platform {
class ListView;
}

namespace quillet {

// The search field over a list. While it has the focus the arrows move through the list, and Return is told
// once a press. Main thread.
class SearchBar : public QLineEdit {
    Q_OBJECT

public:
    explicit SearchBar(QWidget* parent = nullptr);

    // Which list the arrows move in; it outlives this.
    void steer(platform::ListView& list) { m_list = &list; }

    // What an option starts with that is looked for. Only the query is lowercased, so an option with a
    // capital is found by its lower-case start alone.
    QRegularExpression prefixPattern() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void moveBy(int rows);

    platform::ListView* m_list = nullptr;
};

} // namespace quillet
