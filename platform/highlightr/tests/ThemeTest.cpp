#include "platform/highlightr/Highlightr.h"

#include <QtCore/QFile>
#include <gtest/gtest.h>

using namespace platform;

namespace {

const QString anyLanguage = QStringLiteral("c");

Theme themeOf(const char* css) {
    return {QStringLiteral("test"), QString::fromLatin1(css)};
}

std::optional<QRgb> colorOf(const char* css, const std::vector<QString>& path,
                            const QString& language = anyLanguage) {
    return themeOf(css).attributesFor(language, path).foreground;
}

const QString keyword = QStringLiteral("keyword");
const QString meta = QStringLiteral("meta");
const QString string = QStringLiteral("string");

TEST(Theme, MoreClassesWinThenTheLaterRule) {
    EXPECT_EQ(colorOf(".hljs-keyword{color:#111}.hljs-keyword{color:#222}", {keyword}), 0xFF222222);
    EXPECT_EQ(colorOf(".hljs-title.function_{color:#111}.hljs-title{color:#222}",
                      {QStringLiteral("title.function")}),
              0xFF111111);
    EXPECT_EQ(colorOf(".hljs-meta .hljs-string{color:#111}.hljs-string{color:#222}", {meta, string}),
              0xFF111111);
    EXPECT_EQ(colorOf(".a .hljs-keyword,.hljs-keyword{color:#333}", {keyword}), 0xFF333333);
}

TEST(Theme, CombinatorsAndLanguagesNarrowARule) {
    const char* child = ".hljs-meta>.hljs-string{color:#111}";
    EXPECT_EQ(colorOf(child, {meta, string}), 0xFF111111);
    EXPECT_EQ(colorOf(child, {meta, keyword, string}), std::nullopt);
    EXPECT_EQ(colorOf(".hljs-meta .hljs-string{color:#111}", {meta, keyword, string}), 0xFF111111);
    EXPECT_EQ(colorOf(".xml .hljs-meta{color:#111}", {meta}, QStringLiteral("xml")), 0xFF111111);
    EXPECT_EQ(colorOf(".language-css .hljs-meta{color:#111}", {QStringLiteral("language:css"), meta}),
              0xFF111111);
    EXPECT_EQ(colorOf(".xml .hljs-meta{color:#111}", {meta}), std::nullopt);
    EXPECT_EQ(
        colorOf(".hljs-title.class_.inherited__{color:#111}", {QStringLiteral("title.class.inherited")}),
        0xFF111111);
}

TEST(Theme, NestedScopesInheritUntilTheySayOtherwise) {
    const Theme theme = themeOf(".hljs-meta{color:#111;font-weight:700;background:#eee}"
                                ".hljs-string{font-weight:400;font-style:italic;text-decoration:underline}");
    const TextAttributes nested = theme.attributesFor(anyLanguage, {meta, string});
    EXPECT_EQ(nested.foreground, 0xFF111111);
    EXPECT_EQ(nested.background, 0xFFEEEEEE);
    EXPECT_FALSE(nested.bold);
    EXPECT_TRUE(nested.italic);
    EXPECT_TRUE(nested.underline);
}

TEST(Theme, EverySpellingOfAColourIsRead) {
    const std::pair<const char*, QRgb> spellings[] = {{"#abc", 0xFFAABBCC},
                                                      {"#abcd", 0xDDAABBCC},
                                                      {"#aabbcc80", 0x80AABBCC},
                                                      {"SILVER", 0xFFC0C0C0},
                                                      {"rgb(1,2,3)", 0xFF010203},
                                                      {"rgba(1, 2, 3, 0.5)", 0x80010203},
                                                      {"hsl(0,100%,50%)", 0xFFFF0000},
                                                      {"hsl(120 100% 50%)", 0xFF00FF00},
                                                      {"var(--x)", 0xFF123456},
                                                      {"var(--none, #fff)", 0xFFFFFFFF},
                                                      {"var(--loop,#000)", 0xFF654321}};
    for (const auto& [text, expected] : spellings) {
        const QByteArray css =
            QByteArray(":root{--x:#123456;--loop:#654321}.hljs-keyword{color:") + text + "}";
        EXPECT_EQ(colorOf(css.constData(), {keyword}), expected) << text;
    }
    for (const char* unknown :
         {"#12", "inherit", "url(x.png)", "linear-gradient(#fff,#000)", "rgb(1)", "", "var(--x"})
        EXPECT_EQ(colorOf((QByteArray(".hljs-keyword{color:") + unknown + "}").constData(), {keyword}),
                  std::nullopt)
            << unknown;
}

TEST(Theme, WhatSpeaksOfOtherThingsIsPassedOver) {
    EXPECT_EQ(colorOf("@media screen{.hljs-keyword{color:#111}}.hljs-keyword{color:#222}", {keyword}),
              0xFF222222);
    EXPECT_EQ(colorOf(".hljs-keyword:hover,.hljs ::selection,span.hljs-keyword{color:#111}", {keyword}),
              std::nullopt);
    EXPECT_EQ(colorOf("/* .hljs-keyword{color:#111} */pre code.hljs-keyword{color:#222}", {keyword}),
              0xFF222222);
}

TEST(Theme, EveryShippedThemeReadsWellAndSurvivesBeingCut) {
    const QStringList names = Highlightr::availableThemes();
    EXPECT_GT(names.size(), 200);
    EXPECT_TRUE(names.contains(QStringLiteral("xcode")));
    Highlightr highlightr;
    for (const QString& name : names) {
        ASSERT_TRUE(highlightr.setTheme(name));
        const auto theme = highlightr.theme();
        EXPECT_NE(theme->themeBackgroundColor(), theme->foregroundColor()) << name.toStdString();
        QFile file(QStringLiteral(":/highlightr/themes/") + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QString css = QString::fromUtf8(file.readAll());
        for (qsizetype size = 0; size < css.size(); size += 97)
            Theme(name, css.left(size)).attributesFor(anyLanguage, {meta, string});
    }
}

} // namespace
