#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtWidgets/QAbstractButton>

#include <functional>
#include <optional>

class QVBoxLayout;

namespace platform {
class SymbolButton;
}

namespace halcyonix {

class FilledButton;
class PictureView;

// A hint in a list or on a form: an image, a title, a text, and what to do about it. A press on the card, or
// on the button that says `cta`, runs `onAction`; the mark in its corner hides the card. Main thread.
class InfoCard : public QAbstractButton {
    Q_OBJECT

public:
    struct Config {
        std::optional<QString> systemImageName = std::nullopt;
        std::optional<QString> imageName = std::nullopt; // goes before a symbol
        QString title;
        QString bodyText;
        std::optional<QString> cta = std::nullopt;
    };

    InfoCard(const Config& config, std::function<void()> onAction, QWidget* parent = nullptr);

    QSize sizeHint() const override;

    bool hasHeightForWidth() const override { return true; }

    int heightForWidth(int width) const override;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* makeTexts(const Config& config);
    void turnChevron();
    void placeMark();

    std::function<void()> m_onAction;
    PictureView* m_chevron;
    platform::SymbolButton* m_mark;
};

} // namespace halcyonix
