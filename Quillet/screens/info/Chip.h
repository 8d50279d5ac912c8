#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtWidgets/QAbstractButton>

#include <optional>

namespace quillet {

// A word on a rounded ground, at least 33 points high, that can be pressed. A long word is cut short and told
// whole by the tool tip. Main thread.
class Chip : public QAbstractButton {
    Q_OBJECT

public:
    explicit Chip(QWidget* parent = nullptr);

    void setTitle(const QString& title);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    struct Look {
        std::optional<platform::Asset> fill;
        std::optional<platform::Asset> border;
        QColor text;
    };

    virtual Look look() const = 0;
    virtual int leastWidth() const;

    void keyPressEvent(QKeyEvent* event) override; // Return presses, as Space does
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillet
