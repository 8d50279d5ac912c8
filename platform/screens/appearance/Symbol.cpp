#include "platform/screens/appearance/Symbol.h"

#include "platform/foundation/FatalError.h"
#include "platform/foundation/NeverDestroyed.h"

#include <QtCore/QCache>
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
        {QStringLiteral("bin.fill"), QStringLiteral("trash_fill")},
        {QStringLiteral("note.text"), QStringLiteral("doc_text")},
        {QStringLiteral("paintpalette.fill"), QStringLiteral("paintbrush_fill")},
        {QStringLiteral("questionmark.circle"), QStringLiteral("question_circle")},
        {QStringLiteral("safari"), QStringLiteral("compass")},
        {QStringLiteral("square.and.arrow.up"), QStringLiteral("square_arrow_up")},
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

// A symbol as it was drawn before.
struct Drawn {
    QString name;
    QSize pixels;
    QRgb tint;
    qreal scale;

    bool operator==(const Drawn&) const = default;
};

size_t qHash(const Drawn& drawn, size_t seed) {
    return qHashMulti(seed, drawn.name, drawn.pixels.width(), drawn.pixels.height(), drawn.tint, drawn.scale);
}

constexpr int cachedPixels = 1 << 20; // 4 MB of them

QPixmap rasterised(const Drawn& drawn) {
    QImage image(drawn.pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter shape(&image);
    rendererOf(drawn.name).render(&shape);
    shape.setCompositionMode(QPainter::CompositionMode_SourceIn);
    shape.fillRect(image.rect(), QColor::fromRgba(drawn.tint));
    shape.end();
    auto pixmap = QPixmap::fromImage(std::move(image));
    pixmap.setDevicePixelRatio(drawn.scale);
    return pixmap;
}

// A list that scrolls draws the same few over and over.
QPixmap pixmapOf(const Drawn& drawn) {
    static NeverDestroyed<QCache<Drawn, QPixmap>> shared(cachedPixels);
    auto& cache = shared.get();
    if (const QPixmap* known = cache.object(drawn)) return *known;
    const QPixmap pixmap = rasterised(drawn);
    const int cost = drawn.pixels.width() * drawn.pixels.height();
    cache.insert(drawn, std::make_unique<QPixmap>(pixmap).release(), cost); // the cache takes ownership
    return pixmap;
}

// The nearest place where the pixels of a picture are pixels of the device, and so stay sharp.
QPointF onPixel(QPointF place, const QTransform& transform, qreal scale) {
    const QPointF offset(transform.dx(), transform.dy());
    return ((place + offset) * scale).toPoint() / scale - offset;
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
    const QPixmap symbol = pixmapOf({name, (rect.size() * scale).toSize(), tint.rgba(), scale});
    if (painter.transform().type() <= QTransform::TxTranslate)
        return painter.drawPixmap(onPixel(rect.topLeft(), painter.transform(), scale), symbol);
    const bool isSmooth = painter.testRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect, symbol, QRectF(symbol.rect()));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, isSmooth);
}

} // namespace platform
