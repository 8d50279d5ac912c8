// Prints a file in colours, and replaces in it whatever a regular expression finds:
//
//     colours FILE [PATTERN REPLACEMENT]
//
// It stands on the half of the engine that needs no toolkit.

#include "NothingOnScreen.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <languages/catalogue/Catalogue.h>
#include <languages/catalogue/CatalogueLanguageProvider.h>
#include <languages/catalogue/LanguageNames.h>
#include <languages/catalogue/QueryBundles.h>
#include <themes/onedark/OneDarkTheme.h>

using namespace tessarine;

namespace {

TextStore decoded(std::string_view bytes) {
    return decodeText(std::as_bytes(std::span(bytes))).text;
}

std::u16string unitsOf(std::string_view bytes) {
    return StringView(decoded(bytes)).string();
}

void print(const TextStore& text) {
    encodeText(text.text(), {}, [](std::span<const std::byte> bytes) {
        std::cout.write(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
    });
}

void print(const AttributedString& line) {
    for (const AttributedString::Run& run : line.runs({0, line.length()})) {
        const RGBAColor colour = run.attributes.foregroundColor->resolved(UserInterfaceStyle::Dark);
        std::cout << "\033[38;2;" << +colour.red << ';' << +colour.green << ';' << +colour.blue << 'm';
        print(TextStore(line.substring(run.range)));
    }
    std::cout << "\033[0m";
}

TextViewState opened(const std::string& name, TextStore text, std::shared_ptr<const Theme> theme,
                     const TextMeasurer& measurer) {
    const auto language = languages::languageOfFile(name);
    if (!language) return {std::move(text), std::move(theme), measurer};
    const TreeSitterLanguageMode mode(languages::treeSitterLanguage(*language),
                                      std::make_shared<languages::CatalogueLanguageProvider>());
    return {std::move(text), std::move(theme), measurer, mode, std::make_shared<NoMainLoop>()};
}

// One undoable edit, after which the syntax is that of the new text.
bool replaceAll(TextInputView& view, const std::string& pattern, const std::string& replacement) {
    const SearchQuery query{.text = unitsOf(pattern), .isRegularExpression = true};
    const auto replacements = replacementsOfAll(view.document().stringView->snapshot(), query,
                                                replacementFor(query, unitsOf(replacement)));
    if (!replacements) {
        std::cerr << replacements.error().message << '\n';
        return false;
    }
    view.replaceText(*replacements);
    return true;
}

void printLines(const EditedDocument& document, const std::shared_ptr<const Theme>& theme) {
    const auto highlighter = document.languageMode->createLineSyntaxHighlighter();
    highlighter->setTheme(theme);
    for (std::int64_t row = 0; row < document.lineManager->lineCount(); ++row) {
        const DocumentLineNode& line = document.lineManager->lineAtRow(row);
        const auto string = std::make_shared<AttributedString>(
            document.stringView->snapshot(), TextRange{line.location(), line.data().totalLength()});
        highlighter->setDefaultAttributes(*string);
        highlighter->syntaxHighlight({string, {line.data().startByte(), line.data().byteCount()}});
        print(*string);
    }
}

} // namespace

int main(int argc, char** argv) {
    std::ifstream file(argc == 2 || argc == 4 ? argv[1] : "");
    if (!file) {
        std::cerr << "colours FILE [PATTERN REPLACEMENT]\n";
        return 1;
    }
    const std::string bytes{std::istreambuf_iterator(file), {}};

    languages::setQueryBundlesFolder(QUERIES);
    const auto theme = std::make_shared<themes::OneDarkTheme>();
    const auto measurer = std::make_shared<CellMeasurer>();
    const auto view =
        TextInputView::create(std::make_shared<NoLayout>(), std::make_shared<NoTimers>(), measurer);
    view->setState(opened(argv[1], decoded(bytes), theme, *measurer));

    if (argc == 4 && !replaceAll(*view, argv[2], argv[3])) return 1;
    printLines(view->document(), theme);
}
