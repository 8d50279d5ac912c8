#pragma once

#include "platform/screens/appearance/Palette.h"

#include <QtWidgets/QWidget>

#include <optional>
#include <variant>

namespace halcyonix {

// A picture of fixed size in points: an image of the program's own (the resource ":/images/NAME.svg", in its
// own colours unless tinted) or a symbol. Hidden while it has none. Says nothing to assistive tools: what it
// stands for is written beside it.
class PictureView : public QWidget {
    Q_OBJECT

public:
    // A colour that follows the appearance, or one that does not.
    using Tint = std::variant<platform::Asset, QColor>;

    explicit PictureView(QSize size, QWidget* parent = nullptr);

    // An unknown name is fatal.
    void setImage(const QString& name, std::optional<Tint> tint = std::nullopt);
    void setSymbol(const QString& name, Tint tint);

    // The image where there is one, else the symbol, else nothing.
    void setEither(const std::optional<QString>& imageName, const std::optional<QString>& systemImageName,
                   Tint symbolTint);

    bool isEmpty() const { return m_name.isEmpty(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    enum class Source { Images, Symbols };

    void setPicture(Source source, const QString& name, std::optional<Tint> tint);

    Source m_source = Source::Symbols;
    QString m_name;
    std::optional<Tint> m_tint;
};

} // namespace halcyonix
