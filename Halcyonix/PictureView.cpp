#include "Halcyonix/PictureView.h"

#include "platform/foundation/FatalError.h"
#include "platform/screens/appearance/Symbol.h"

#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

namespace halcyonix {

namespace {

QColor colorOf(const PictureView::Tint& tint) {
    if (const auto* asset = std::get_if<platform::Asset>(&tint)) return platform::color(*asset);
    return std::get<QColor>(tint);
}

void drawImage(QPainter& painter, const QRectF& rect, const QString& name,
               const std::optional<QColor>& tint) {
    QSvgRenderer renderer(QStringLiteral(":/images/%1.svg").arg(name));
    if (!renderer.isValid()) platform::fatalError("There is no image of this name: " + name.toStdString());
    const qreal scale = painter.device()->devicePixelRatio();
    QImage image((rect.size() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter shape(&image);
    renderer.render(&shape);
    shape.setCompositionMode(QPainter::CompositionMode_SourceIn);
    if (tint) shape.fillRect(image.rect(), *tint);
    shape.end();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect, image);
}

} // namespace

PictureView::PictureView(QSize size, QWidget* parent)
    : QWidget(parent) {
    setFixedSize(size);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void PictureView::setImage(const QString& name, std::optional<Tint> tint) {
    setPicture(Source::Images, name, tint);
}

void PictureView::setSymbol(const QString& name, Tint tint) {
    setPicture(Source::Symbols, name, tint);
}

void PictureView::setEither(const std::optional<QString>& imageName,
                            const std::optional<QString>& systemImageName, Tint symbolTint) {
    if (imageName)
        setImage(*imageName);
    else if (systemImageName)
        setSymbol(*systemImageName, symbolTint);
    else
        setPicture(Source::Symbols, {}, std::nullopt);
}

void PictureView::setPicture(Source source, const QString& name, std::optional<Tint> tint) {
    m_source = source;
    m_name = name;
    m_tint = tint;
    setVisible(!isEmpty());
    update();
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const auto tint = m_tint ? std::optional(colorOf(*m_tint)) : std::nullopt;
    if (m_source == Source::Images)
        drawImage(painter, rect(), m_name, tint);
    else
        platform::drawSymbol(painter, rect(), m_name, tint.value_or(QColor()));
}

} // namespace halcyonix
