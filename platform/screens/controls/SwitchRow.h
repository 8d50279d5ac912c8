#pragma once

#include <QtWidgets/QCheckBox>

namespace platform {

// A switch behind its text, as the style draws check boxes, for a row of a form: the text wraps where it has
// little room. All of the row is the target. Main thread.
class SwitchRow : public QCheckBox {
    Q_OBJECT

public:
    explicit SwitchRow(const QString& text, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

private:
    // What of the width is not for the text.
    int besideText() const;
};

} // namespace platform
