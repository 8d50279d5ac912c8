// The least that a program needs to show and edit a file with the engine: tessarine-embed FILE.
#include "Tessarine/textview/TextView.h"
#include "Tessarine/view/QtTextView.h"
#include "languages/catalogue/Catalogue.h"
#include "languages/catalogue/CatalogueLanguageProvider.h"
#include "languages/catalogue/LanguageNames.h"
#include "themes/tomorrow/TomorrowTheme.h"

#include <QtCore/QFile>
#include <QtWidgets/QApplication>

using namespace tessarine;

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QFile file(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("int main() {}\n");

    QtTextView widget;
    widget.setUserInterfaceStyle(UserInterfaceStyle::Light);
    TextView& view = widget.textView();
    view.setTheme(std::make_shared<themes::TomorrowTheme>());
    view.setShowLineNumbers(true);
    view.setText(QString::fromUtf8(bytes).toStdU16String());

    const auto language =
        languages::languageOfFile(file.fileName().toStdString()).value_or(languages::Language::C);
    view.setLanguageMode(TreeSitterLanguageMode(languages::treeSitterLanguage(language),
                                                std::make_shared<languages::CatalogueLanguageProvider>()));
    widget.resize(800, 600);
    widget.show();
    return QApplication::exec();
}
