#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

class QFrame;

namespace platform {

// A card over a dimmed window. Covers its parent and follows its size; Escape, or a click beside the card,
// dismisses it. Owned by its parent and deleted when dismissed.
class Sheet : public QWidget {
    Q_OBJECT

public:
    // Presents `content` over the window of `over`; takes ownership of it. `preferred` is the card's size in
    // points; a smaller window gets a smaller card.
    static Sheet* present(QWidget* content, QWidget* over, QSize preferred);

    void dismiss();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    Sheet(QWidget* content, QWidget* window, QSize preferred);

    void placeCard();

    QFrame* m_card;
    QSize m_preferred;
    QPointer<QWidget> m_returnFocus;
};

} // namespace platform
