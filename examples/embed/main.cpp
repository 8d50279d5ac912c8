// A window that edits a text in colours: embedded-editor [PICTURE]. With a name it leaves a picture there and
// ends.

#include <QtWidgets/QApplication>

#include <Tessarine/TessarineView.h>
#include <languages/catalogue/Catalogue.h>
#include <languages/catalogue/QueryBundles.h>
#include <themes/onedark/OneDarkTheme.h>

using namespace tessarine;

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    languages::setQueryBundlesFolder(QUERIES);

    QtTextView editor;
    const auto theme = std::make_shared<themes::OneDarkTheme>();
    editor.setUserInterfaceStyle(theme->userInterfaceStyle());
    TextView& textView = editor.textView();
    textView.scrollView()->setBackgroundColor(theme->backgroundColor());
    textView.setTheme(theme);
    textView.setShowLineNumbers(true);
    textView.setGutterLeadingPadding(8);
    textView.setGutterTrailingPadding(8);
    textView.setText(
        u"#include <stdio.h>\n\nint main(void) {\n    puts(\"Hello\"); // edit me\n    return 0;\n}\n");
    editor.resize(640, 400);
    editor.show();

    const TreeSitterLanguageMode languageMode(languages::treeSitterLanguage(languages::Language::C));
    textView.setLanguageMode(languageMode, [&](bool /*isParsed*/) {
        if (argc == 2) QApplication::exit(editor.grab().save(argv[1]) ? 0 : 1);
    });
    return QApplication::exec();
}
