#pragma once

#include "Tessarine/document/TextLocation.h"

#include <QtWidgets/QFrame>

class QLineEdit;

namespace tessarine::editor {

// Asks for a line, and a column behind a colon, below the text.
class GoToLineBar : public QFrame {
    Q_OBJECT

public:
    explicit GoToLineBar(QWidget* parent);

    // With the place where one is, selected.
    void open(const TextLocation& present);

Q_SIGNALS:
    void placeChosen(const tessarine::TextLocation& place);
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void choose();

    QLineEdit* m_place;
};

} // namespace tessarine::editor
