#pragma once

#include "Halcyonix/ModalConfig.h"
#include "platform/screens/controllers/ViewController.h"

class QAbstractButton;
class QLabel;
class QScrollArea;
class QVBoxLayout;

namespace platform {
class SymbolButton;
}

namespace halcyonix {

class FilledButton;
class GrayView;
class ModalViewController;
class PictureView;

class ModalViewControllerDelegate {
public:
    virtual ~ModalViewControllerDelegate() = default;

    // The card's button was pressed. The card goes by itself after that.
    virtual void didPressButton(ModalViewController& modal) = 0;
};

// An announcement on a card over a dimmed window; presented over the current context. Its button, the mark in
// its corner, Escape and a press beside the card dismiss it. A text too long for the window scrolls. Main
// thread.
class ModalViewController : public platform::ViewController {
    Q_OBJECT

public:
    explicit ModalViewController(ModalConfig config);

    ModalViewControllerDelegate* delegate = nullptr; // outlives this

    const ModalConfig& config() const { return m_config; }

    QWidget& modalContainer() { return *m_modalContainer; }

    GrayView& backgroundView() { return *m_backgroundView; }

    platform::SymbolButton& closeButton() { return *m_closeButton; }

    QLabel& titleLabel() { return *m_titleLabel; }

    QLabel& bodyLabel() { return *m_bodyLabel; }

    PictureView& imageView() { return *m_imageView; }

    FilledButton& button() { return *m_button; }

protected:
    void viewDidLoad() override;
    void viewDidLayoutSubviews() override;
    void keyPressEvent(QKeyEvent* event) override; // pages through a long text

private:
    void fillContent();
    void addItem(const ModalItem& item);
    void pressButton();
    int contentHeight(int width) const;
    void setScrolling(bool scrolls);
    void placeCard();

    ModalConfig m_config;
    GrayView* m_backgroundView;
    QWidget* m_modalContainer;
    QScrollArea* m_scroll;
    QVBoxLayout* m_content;
    PictureView* m_imageView;
    QLabel* m_titleLabel;
    QLabel* m_bodyLabel;
    FilledButton* m_button;
    platform::SymbolButton* m_closeButton;
};

} // namespace halcyonix
