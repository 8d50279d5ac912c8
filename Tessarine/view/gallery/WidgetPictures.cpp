#include "Tessarine/view/gallery/WidgetPictures.h"

#include "Tessarine/syntax/TreeSitterLanguageMode.h"
#include "Tessarine/textview/TextView.h"
#include "Tessarine/view/QtTextView.h"
#include "Tessarine/view/gallery/GallerySamples.h"
#include "languages/catalogue/CatalogueLanguageProvider.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtGui/QPixmap>

namespace tessarine {

namespace {

void showSample(QtTextView& widget) {
    TextView& view = widget.textView();
    const auto provider = std::make_shared<const languages::CatalogueLanguageProvider>();
    bool isParsed = false;
    view.setText(gallerySamples.front().text);
    view.setLanguageMode(TreeSitterLanguageMode(provider->treeSitterLanguage("c"), provider),
                         [&](bool /*isParsed*/) { isParsed = true; });
    while (!isParsed)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    view.setShowLineNumbers(true);
    view.setShowPageGuide(true);
    view.setPageGuideColumn(60);
    view.setLineSelectionDisplayType(LineSelectionDisplayType::line);
    view.setLineHeightMultiplier(1.2);
    view.changeInvisibleCharacterConfiguration([](InvisibleCharacterConfiguration& configuration) {
        configuration.setShowTabs(true);
        configuration.setShowSpaces(true);
        configuration.setShowLineBreaks(true);
    });
}

bool save(QtTextView& widget, const QString& path) {
    QCoreApplication::processEvents();
    return widget.grab().save(path);
}

} // namespace

bool saveWidgetPictures(const QDir& folder) {
    QtTextView widget;
    widget.resize(640, 330);
    widget.show();
    widget.activateWindow();
    widget.setFocus();
    showSample(widget);
    widget.textView().movement().select(150, 260);
    widget.setUserInterfaceStyle(UserInterfaceStyle::Light);
    const bool isLightSaved = save(widget, folder.filePath(QStringLiteral("widget-light.png")));
    widget.setUserInterfaceStyle(UserInterfaceStyle::Dark);
    const bool isDarkSaved = save(widget, folder.filePath(QStringLiteral("widget-dark.png")));
    widget.textView().movement().select(60, 60);
    return isLightSaved && isDarkSaved && save(widget, folder.filePath(QStringLiteral("widget-caret.png")));
}

} // namespace tessarine
