#include "platform/screens/appearance/Symbol.h"

#include "platform/foundation/FatalError.h"

#include <QtCore/QHash>
#include <QtGui/QIconEngine>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include <memory>

namespace platform {

namespace {

// Most names differ from the icon set's files only in the separator; these have a file of another name.
QString fileOf(const QString& name) {
    static const QHash<QString, QString> others{
        {QStringLiteral("rectangle.and.pencil.and.ellipsis"), QStringLiteral("pencil_ellipsis_rectangle")},
        {QStringLiteral("paintpalette.fill"), QStringLiteral("paintbrush_fill")},
    };
    QString plain = name;
    return QStringLiteral(":/symbols/%1.svg").arg(others.value(name, plain.replace(u'.', u'_')));
}

QSvgRenderer& rendererOf(const QString& name) {
    static QHash<QString, std::shared_ptr<QSvgRenderer>> renderers;
    auto& renderer = renderers[name];
    if (!renderer) renderer = std::make_shared<QSvgRenderer>(fileOf(name));
    if (!renderer->isValid()) fatalError("There is no symbol of this name: " + name.toStdString());
    return *renderer;
}

class SymbolIconEngine : public QIconEngine {
public:
    SymbolIconEngine(QString name, Asset tint)
        : m_name(std::move(name))
        , m_tint(tint) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        drawSymbol(*painter, rect, m_name, color(mode == QIcon::Disabled ? Asset::TextSecondary : m_tint));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override {
        return std::make_unique<SymbolIconEngine>(m_name, m_tint).release();
    }

private:
    QString m_name;
    Asset m_tint;
};

} // namespace

QIcon symbolIcon(const QString& name, Asset tint) {
    return QIcon(std::make_unique<SymbolIconEngine>(name, tint).release()); // the icon takes ownership
}

void drawSymbol(QPainter& painter, const QRectF& rect, const QString& name, const QColor& tint) {
    const qreal scale = painter.device()->devicePixelRatio();
    QImage image((rect.size() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter shape(&image);
    rendererOf(name).render(&shape);
    shape.setCompositionMode(QPainter::CompositionMode_SourceIn);
    shape.fillRect(image.rect(), tint);
    shape.end();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect, image);
}

} // namespace platform
