#include "platform/highlightr/Highlightr.h"

#include "platform/highlightr/Frames.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>
#include <gtest/gtest.h>

using namespace platform;
using namespace std::chrono_literals;

namespace {

HighlightedCode scopesOf(const QString& code, const std::optional<QString>& language) {
    // As patient as a machine that is busy with other tests needs it.
    static HighlightProcess process(QCoreApplication::applicationDirPath() +
                                        QStringLiteral("/quillet-highlighter"),
                                    {.start = 60s, .request = 60s});
    const auto answer = process.highlight(code, language, 2048);
    return answer ? *answer : HighlightedCode();
}

// The scope path at a place in the text, joined; empty between runs.
QString scopeAt(const HighlightedCode& code, qsizetype at) {
    for (const auto& run : code.runs) {
        if (at < run.start || at >= run.limit) continue;
        const auto& path = code.paths[run.path];
        return QStringList(path.begin(), path.end()).join(u' ');
    }
    return {};
}

TEST(Highlightr, ScopesStandWhereTheTextHasThem) {
    const QString code = QString::fromUtf8("int x; // 😀\r\nreturn \"s\";\r\n");
    const auto highlighted = scopesOf(code, QStringLiteral("c"));
    EXPECT_EQ(highlighted.language, QStringLiteral("c"));
    EXPECT_EQ(scopeAt(highlighted, 0), QStringLiteral("type"));
    EXPECT_EQ(scopeAt(highlighted, 4), QString());
    EXPECT_EQ(scopeAt(highlighted, code.indexOf(u'/')), QStringLiteral("comment"));
    EXPECT_EQ(scopeAt(highlighted, code.indexOf(QStringLiteral("return"))), QStringLiteral("keyword"));
    EXPECT_EQ(scopeAt(highlighted, code.indexOf(QStringLiteral("\"s\""))), QStringLiteral("string"));
}

TEST(Highlightr, AnotherLanguageInsideIsHighlightedAsItself) {
    const QString code = QStringLiteral("<p>a</p>\n<script>let x = 'y';</script>\n<b>c</b>");
    const auto highlighted = scopesOf(code, QStringLiteral("xml"));
    EXPECT_EQ(scopeAt(highlighted, code.indexOf(QStringLiteral("let"))),
              QStringLiteral("language:javascript keyword"));
    EXPECT_EQ(scopeAt(highlighted, code.lastIndexOf(u'b')), QStringLiteral("tag name"));
}

TEST(Highlightr, AnAbsentLanguageIsDetectedOnTheSampleAndHoldsForTheWholeText) {
    const QString start =
        QStringLiteral("import os\n\ndef f(self, *args):\n    if self is None and not args:\n"
                       "        raise ValueError(f\"{args}\")\n    elif len(args) > 1:\n"
                       "        yield from os.environ\n")
            .repeated(40);
    const QString code = start + QStringLiteral("lambda x: x\n").repeated(400);
    const auto highlighted = scopesOf(code, std::nullopt);
    EXPECT_EQ(highlighted.language, QStringLiteral("python"));
    EXPECT_EQ(scopeAt(highlighted, code.lastIndexOf(QStringLiteral("lambda"))), QStringLiteral("keyword"));
}

TEST(Highlightr, AnUnknownLanguageGivesNoColours) {
    const QString code = QStringLiteral("int x;");
    EXPECT_EQ(Highlightr().highlight(code, QStringLiteral("klingon"), Highlightr::Rendering::Fast),
              (AttributedString{code, {}}));
    EXPECT_EQ(
        Highlightr().highlight(code, QStringLiteral("__proto__"), Highlightr::Rendering::Fast).runs.size(),
        0U);
}

TEST(Highlightr, AnyTextComesBackAsItWas) {
    const QString texts[] = {
        QString(), QString(QChar(u'\0')).repeated(3) + QStringLiteral("int x;\r\rchar y;\n\r"),
        QString(QChar(char16_t{0xDC00})) + QStringLiteral("int x;") + QChar(char16_t{0xD800}),
        QString(static_cast<qsizetype>(highlight::longestCode) + 1, u'x')};
    for (const QString& text : texts) {
        const auto result = Highlightr().highlight(text, QStringLiteral("c"), Highlightr::Rendering::Fast);
        EXPECT_EQ(result.string, text);
        for (const auto& run : result.runs)
            EXPECT_LE(run.limit, text.size());
    }
    const auto coloured = Highlightr().highlight(texts[1], QStringLiteral("c"), Highlightr::Rendering::Fast);
    EXPECT_FALSE(coloured.runs.empty());
}

TEST(Highlightr, AThemeChangesTheColoursAndAnUnknownOneDoesNot) {
    Highlightr highlightr;
    const QString code = QStringLiteral("return 1;");
    const auto light = highlightr.highlight(code, QStringLiteral("c"), Highlightr::Rendering::Fast);
    EXPECT_FALSE(highlightr.setTheme(QStringLiteral("no such theme")));
    EXPECT_FALSE(highlightr.setTheme(QStringLiteral("../languages.txt")));
    EXPECT_EQ(highlightr.theme()->name(), QStringLiteral("xcode"));
    ASSERT_TRUE(highlightr.setTheme(QStringLiteral("monokai")));
    const auto dark = highlightr.highlight(code, QStringLiteral("c"), Highlightr::Rendering::Fast);
    ASSERT_FALSE(light.runs.empty());
    ASSERT_FALSE(dark.runs.empty());
    EXPECT_NE(light.runs[0].attributes, dark.runs[0].attributes);
}

TEST(Highlightr, TheListOfLanguagesIsTheHelpersOwn) {
    QProcess helper;
    helper.start(QCoreApplication::applicationDirPath() + QStringLiteral("/quillet-highlighter"),
                 {QStringLiteral("--list-languages")});
    ASSERT_TRUE(helper.waitForFinished());
    const auto names = QString::fromLatin1(helper.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    EXPECT_GT(names.size(), 150);
    EXPECT_EQ(Highlightr::supportedLanguages(), names);
}

} // namespace
