// Paints every language's sample in a light and a dark theme, for people to look at.
//   language_gallery FOLDER
#include "Tessarine/view/gallery/GalleryPage.h"
#include "Tessarine/view/gallery/PaintedView.h"
#include "languages/catalogue/tests/ParsedSample.h"
#include "themes/onedark/OneDarkTheme.h"
#include "themes/tomorrow/TomorrowTheme.h"

#include <QtCore/QDir>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <algorithm>
#include <cstdio>
#include <exception>

namespace tessarine {

namespace {

constexpr Size room{.width = 780, .height = 20'000};

QImage paintedPage(const GallerySample& sample, const std::shared_ptr<const themes::EditorTheme>& theme) {
    const double height = GalleryPage::create(sample, theme, room)->view()->contentSize().height;
    const auto page = GalleryPage::create(sample, theme, {.width = room.width, .height = height});
    return paintedView(*page->view(), 1, theme->userInterfaceStyle());
}

QImage besideEachOther(const QImage& left, const QImage& right) {
    QImage both(left.width() + right.width(), std::max(left.height(), right.height()), left.format());
    QPainter painter(&both);
    painter.drawImage(0, 0, left);
    painter.drawImage(left.width(), 0, right);
    return both;
}

bool savePicture(const languages::CatalogueEntry& entry, const QDir& folder) {
    const std::u16string text = languages::sampleOf(entry);
    const GallerySample sample{
        .language = entry.name, .text = text, .guideColumn = 100, .showsSpaces = false};
    const QString name = QString::fromLatin1(entry.name.data(), static_cast<qsizetype>(entry.name.size()));
    return besideEachOther(paintedPage(sample, std::make_shared<const themes::TomorrowTheme>()),
                           paintedPage(sample, std::make_shared<const themes::OneDarkTheme>()))
        .save(folder.filePath(name + QStringLiteral(".png")));
}

} // namespace

} // namespace tessarine

int main(int argc, char** argv) try {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2) {
        std::fputs("usage: language_gallery FOLDER\n", stderr);
        return 2;
    }
    const QDir folder(arguments.at(1));
    return folder.mkpath(QStringLiteral(".")) &&
                   std::ranges::all_of(
                       tessarine::languages::catalogueEntries(),
                       [&](const auto& entry) { return tessarine::savePicture(entry, folder); })
               ? 0
               : 1;
} catch (const std::exception& error) {

    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
