#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtWidgets/QAbstractButton>

namespace platform {

// A button that is a symbol and nothing else, at least 44 by 44 points. Its name is what assistive tools read
// and the tool tip shows.
class SymbolButton : public QAbstractButton {
    Q_OBJECT

public:
    SymbolButton(const QString& symbol, const QString& accessibleName, Asset tint = Asset::Accent,
                 QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override; // Return presses, as Space does
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbol;
    Asset m_tint;
};

} // namespace platform
