// Paints a picture of each theme with every sample, and some of the widget, for people to look at.
//   view_gallery FOLDER
#include "Tessarine/theme/DefaultTheme.h"
#include "Tessarine/view/gallery/GalleryPage.h"
#include "Tessarine/view/gallery/PaintedView.h"
#include "Tessarine/view/gallery/WidgetPictures.h"
#include "themes/onedark/OneDarkTheme.h"
#include "themes/plaintext/PlainTextTheme.h"
#include "themes/tomorrow/TomorrowTheme.h"
#include "themes/tomorrownight/TomorrowNightTheme.h"

#include <QtCore/QDir>
#include <QtGui/QImage>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace tessarine {

namespace {

constexpr Size pageSize{.width = 600, .height = 330};
constexpr double scale = 2;
constexpr int pagesInRow = 2;

QImage paintedPages(const std::shared_ptr<const Theme>& theme, UserInterfaceStyle style) {
    const auto sheet = std::make_shared<View>();
    std::vector<std::shared_ptr<GalleryPage>> pages;
    for (const GallerySample& sample : gallerySamples) {
        const auto place = static_cast<int>(pages.size());
        pages.push_back(GalleryPage::create(sample, theme, pageSize));
        pages.back()->view()->setFrame({.x = place % pagesInRow * pageSize.width,
                                        .y = place / pagesInRow * pageSize.height,
                                        .width = pageSize.width,
                                        .height = pageSize.height});
        sheet->addSubview(pages.back()->view());
    }
    sheet->setFrame({.width = pagesInRow * pageSize.width, .height = 2 * pageSize.height});
    return paintedView(*sheet, scale, style);
}

template <class EditorTheme>
QImage paintedPages() {
    const auto theme = std::make_shared<const EditorTheme>();
    return paintedPages(theme, theme->userInterfaceStyle());
}

bool saveGallery(const QDir& folder) {
    const auto save = [&](const char* name, const QImage& picture) {
        return picture.save(folder.filePath(QString::fromLatin1(name)));
    };
    const auto defaultTheme = std::make_shared<const DefaultTheme>();
    return save("default-light.png", paintedPages(defaultTheme, UserInterfaceStyle::Light)) &&
           save("default-dark.png", paintedPages(defaultTheme, UserInterfaceStyle::Dark)) &&
           save("onedark.png", paintedPages<themes::OneDarkTheme>()) &&
           save("plaintext.png", paintedPages<themes::PlainTextTheme>()) &&
           save("tomorrow.png", paintedPages<themes::TomorrowTheme>()) &&
           save("tomorrownight.png", paintedPages<themes::TomorrowNightTheme>()) &&
           saveWidgetPictures(folder);
}

} // namespace

} // namespace tessarine

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2) {
        std::fputs("usage: view_gallery FOLDER\n", stderr);
        return 2;
    }
    const QDir folder(arguments.at(1));
    return folder.mkpath(QStringLiteral(".")) && tessarine::saveGallery(folder) ? 0 : 1;
}
