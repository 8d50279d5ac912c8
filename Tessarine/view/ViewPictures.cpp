#include "Tessarine/view/ViewPictures.h"

#include "Tessarine/view/QtDrawContext.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace tessarine {

namespace {

constexpr qsizetype bytesKept = 64 << 20;
constexpr double largestPicture = 1 << 20; // in bytes
constexpr double longestSide = 8'192;      // in pixels; of longer ones a part shows
constexpr int bytesPerPixel = 4;
constexpr std::size_t entriesKept = 10'000; // of views that draw nothing, too

QSize pixelsOf(const View& view, double scale) {
    return {static_cast<int>(std::ceil(view.frame().width * scale)),
            static_cast<int>(std::ceil(view.frame().height * scale))};
}

qsizetype bytesOf(const QPixmap& picture) {
    return static_cast<qsizetype>(picture.width()) * picture.height() * bytesPerPixel;
}

QPixmap drawn(View& view, const QSize& pixels, double scale, UserInterfaceStyle style) {
    QPixmap picture(pixels);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QtDrawContext context(painter, style);
    view.draw(context);
    painter.end();
    return context.hasDrawn() ? picture : QPixmap();
}

} // namespace

bool ViewPictures::canKeep(const View& view, double scale) {
    const double width = view.frame().width * scale;
    const double height = view.frame().height * scale;
    return std::max(width, height) <= longestSide && width * height * bytesPerPixel <= largestPicture;
}

QPixmap ViewPictures::pictureOf(View& view, double scale, UserInterfaceStyle style) {
    Entry wanted{.view = &view, .pixels = pixelsOf(view, scale), .scale = scale, .style = style};
    Entry& entry = entryOf(view);
    if (view.needsDisplay() || !entry.shows(wanted)) {
        if (!wanted.pixels.isEmpty()) wanted.picture = drawn(view, wanted.pixels, scale, style);
        view.didDisplay();
        m_bytes += bytesOf(wanted.picture) - bytesOf(entry.picture);
        entry = std::move(wanted);
        makeRoom();
    }
    return entry.picture;
}

void ViewPictures::clear() {
    m_entries.clear();
    m_places.clear();
    m_bytes = 0;
}

ViewPictures::Entry& ViewPictures::entryOf(const View& view) {
    if (const auto known = m_places.find(&view); known != m_places.end())
        m_entries.splice(m_entries.begin(), m_entries, known->second);
    else {
        m_entries.push_front({.view = &view});
        m_places.emplace(&view, m_entries.begin());
    }
    return m_entries.front();
}

void ViewPictures::makeRoom() {
    while ((m_bytes > bytesKept || m_entries.size() > entriesKept) && m_entries.size() > 1) {
        m_bytes -= bytesOf(m_entries.back().picture);
        m_places.erase(m_entries.back().view);
        m_entries.pop_back();
    }
}

} // namespace tessarine
