#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QWidget>

namespace quillet {

// Holds widgets that slide out of sight at its top edge and back, taking less or more of the column that it
// is in. Main thread.
class Drawer : public QWidget {
    Q_OBJECT

public:
    static constexpr int milliseconds = 250;

    // Takes the content, and is open.
    explicit Drawer(std::unique_ptr<QWidget> content, QWidget* parent = nullptr);

    // At once where the user wants little motion, or nobody sees it.
    void setOpen(bool isOpen);

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void setShare(qreal share);
    void placeContent();

    QWidget* m_content;
    qreal m_share = 1; // of the content's height
    QVariantAnimation m_animation;
};

} // namespace quillet
