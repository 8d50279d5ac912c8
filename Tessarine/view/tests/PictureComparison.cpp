#include "Tessarine/view/tests/PictureComparison.h"

#include <QtCore/QDir>
#include <QtGui/QPainter>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace tessarine {

namespace {

constexpr int tolerance = 32; // of a channel's mean
constexpr int windowPixels = 9;

using Sums = std::array<int, 3>;

Sums sumsAround(const QImage& image, int atX, int atY) {
    Sums sums{};
    for (int y = atY - 1; y <= atY + 1; ++y)
        for (int x = atX - 1; x <= atX + 1; ++x) {
            const QRgb pixel =
                image.pixel(std::clamp(x, 0, image.width() - 1), std::clamp(y, 0, image.height() - 1));
            sums[0] += qRed(pixel);
            sums[1] += qGreen(pixel);
            sums[2] += qBlue(pixel);
        }
    return sums;
}

bool differsAt(const QImage& a, const QImage& b, int x, int y) {
    const Sums inA = sumsAround(a, x, y);
    const Sums inB = sumsAround(b, x, y);
    return !std::ranges::equal(
        inA, inB, [](int one, int other) { return std::abs(one - other) <= tolerance * windowPixels; });
}

// From the left: what was expected, what has been drawn, where they differ.
QString savedBeside(const QImage& kept, const QImage& drawn, const QImage& difference, const QString& name) {
    QImage sheet(3 * drawn.width(), std::max(kept.height(), drawn.height()), QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.drawImage(0, 0, kept);
    painter.drawImage(drawn.width(), 0, drawn);
    painter.drawImage(2 * drawn.width(), 0, difference);
    painter.end();
    const QDir folder(QStringLiteral(DIFFERING_PICTURES));
    const QString path = folder.filePath(name + QStringLiteral(".png"));
    return folder.mkpath(QStringLiteral(".")) && sheet.save(path) ? path : QStringLiteral("nowhere");
}

} // namespace

int differingPixels(const QImage& a, const QImage& b, QImage* difference) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            if (!differsAt(a, b, x, y)) continue;
            ++count;
            if (difference) difference->setPixel(x, y, qRgb(255, 0, 0));
        }
    return count;
}

::testing::AssertionResult isPicture(const QImage& drawn, const QString& name) {
    const QString path = QDir(QStringLiteral(REFERENCE_PICTURES)).filePath(name + QStringLiteral(".png"));
    if (qEnvironmentVariableIsSet("RENEW_PICTURES") && !drawn.save(path))
        return ::testing::AssertionFailure() << "cannot write " << path.toStdString();
    const QImage kept = QImage(path).convertToFormat(QImage::Format_RGB32);
    QImage difference = drawn;
    const bool isOfSize = kept.size() == drawn.size();
    const int differing = isOfSize ? differingPixels(kept, drawn, &difference) : 0;
    if (isOfSize && differing == 0) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << differing << " pixels differ or the size does, see "
                                         << savedBeside(kept, drawn, difference, name).toStdString();
}

} // namespace tessarine
