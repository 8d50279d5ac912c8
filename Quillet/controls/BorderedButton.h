#pragma once

#include <QtWidgets/QAbstractButton>

namespace quillet {

// A button with its text in a rounded border. Main thread.
class BorderedButton : public QAbstractButton {
    Q_OBJECT

public:
    // How heavy the border is.
    enum class Mode { little, big };

    explicit BorderedButton(const QString& text = {}, QWidget* parent = nullptr);

    Mode mode() const { return m_mode; }

    void setMode(Mode mode);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Mode m_mode = Mode::little;
};

} // namespace quillet
