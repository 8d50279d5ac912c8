#pragma once

#include "platform/screens/controls/PressSqueeze.h"

#include <QtWidgets/QAbstractButton>

class QLabel;

namespace halcyonix {
class PictureView;
}

namespace quillet {

class FancyButton;
class GradientView;

class FancyButtonDelegate {
public:
    virtual ~FancyButtonDelegate() = default;

    virtual void didTap(FancyButton& button) = 0;
};

// A large button: a picture and two lines of text on a gradient, a name and what is chosen under it. It
// shrinks under the finger; a touch that ends on it taps. Main thread.
class FancyButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit FancyButton(QWidget* parent = nullptr);

    FancyButtonDelegate* delegate = nullptr; // outlives this

    GradientView& view() { return *m_view; }

    halcyonix::PictureView& imageView() { return *m_imageView; }

    void setSymbol(const QString& name);
    // What it is about, such as "Language".
    void setSecondaryText(const QString& text);
    // What is chosen.
    void setMainText(const QString& text);

    QLabel& secondaryLabel() { return *m_secondaryLabel; }

    QLabel& mainLabel() { return *m_mainLabel; }

    platform::PressSqueeze& squeeze() { return *m_squeeze; }

    QSize sizeHint() const override;

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void describe();

    GradientView* m_view;
    halcyonix::PictureView* m_imageView;
    QLabel* m_secondaryLabel;
    QLabel* m_mainLabel;
    platform::PressSqueeze* m_squeeze;
};

} // namespace quillet
