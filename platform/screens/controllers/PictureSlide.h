#pragma once

#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

#include <functional>

class QVariantAnimation;

namespace platform {

// Covers a view while a picture of what it showed gives way to a picture of what it shows now. The view
// itself is there already, takes mouse and keys, and may go at any time. Main thread.
class PictureSlide : public QWidget {
    Q_OBJECT

public:
    // What comes in lies above (over the trailing edge) going forth, below going back.
    enum class Way { Forth, Back };

    // `done` runs when the slide is over, or is replaced by another one of the same view.
    static void run(QWidget& view, QPixmap before, Way way, std::function<void()> done);

    ~PictureSlide() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    PictureSlide(QWidget& view, QPixmap before, Way way, std::function<void()> done);

    void finish();

    QPixmap m_before;
    QPixmap m_after;
    Way m_way;
    std::function<void()> m_done;
    QVariantAnimation* m_animation;
};

} // namespace platform
