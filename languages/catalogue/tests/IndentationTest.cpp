// What a line break does in the languages that have indentation scopes.
#include "Tessarine/syntax/tests/SampleDocument.h"
#include "languages/catalogue/Catalogue.h"
#include "languages/catalogue/CatalogueEntry.h"
#include "languages/catalogue/CatalogueLanguageProvider.h"

#include <gtest/gtest.h>

#include <ostream>

namespace tessarine::languages {

namespace {

using Break = InsertLineBreakIndentStrategy;

struct Case {
    Language language;
    std::u16string_view text; // with a ^ where the break comes
    Break expected;
};

Break lineBreak(Language language, std::u16string text) {
    const auto at = text.find(u'^');
    text.erase(at, 1);
    static const auto provider = std::make_shared<const CatalogueLanguageProvider>();
    SampleDocument document(text, treeSitterLanguage(language), provider);
    document.parse();
    const LinePosition position = document.lineManager->linePosition(static_cast<std::int64_t>(at)).value();
    return document.mode->strategyForInsertingLineBreak(position, position, IndentStrategy::space(2));
}

// Behind an opener one level more; between it and its closer a line for the closer too; elsewhere as before.
constexpr Case cases[] = {
    {Language::Bash, u"if a; then^\nfi", {1, false}},
    {Language::Bash, u"if a; then ^fi", {1, true}},
    {Language::Bash, u"for a in b; do\n  while c; do^\n  done\ndone", {2, false}},
    {Language::Bash, u"f() {^\n}", {1, false}},
    {Language::Bash, u"f() {\n  a^\n}", {1, false}},
    {Language::C, u"int f(void) {^}", {1, true}},
    {Language::C, u"int f(void) {\n  if (a) {^\n  }\n}", {2, false}},
    {Language::C, u"int f(^int a);", {1, false}},
    {Language::C, u"int a[] = {^\n};", {1, false}},
    {Language::C, u"int f(void) {\n  a();^\n}", {1, false}},
    {Language::CSS, u"a {^}", {1, true}},
    {Language::CSS, u"@media print {\n  a {^\n  }\n}", {2, false}},
    {Language::CSS, u"a {\n  top: 0;^\n}", {1, false}},
    {Language::HTML, u"<ul>^</ul>", {1, true}},
    {Language::HTML, u"<ul>\n  <li>^</li>\n</ul>", {2, true}},
    {Language::HTML, u"<ul>\n  text^\n</ul>", {1, false}},
    {Language::JSON, u"{^}", {1, true}},
    {Language::JSON, u"{\n  \"a\": [^]\n}", {2, true}},
    {Language::JSON, u"{\n  \"a\": 1,^\n}", {1, false}},
    {Language::JSON5, u"{^}", {1, true}},
    {Language::JSON5, u"{\n  a: [^\n  ]\n}", {2, false}},
    {Language::JavaScriptJSX, u"function f() {^}", {1, true}},
    {Language::JavaScriptJSX, u"const a = {\n  b: [^]\n};", {2, true}},
    {Language::JavaScriptJSX, u"f(^\n);", {1, false}},
    {Language::JavaScriptJSX, u"const a = (\n  <p>^\n  </p>\n);", {2, false}},
    {Language::JavaScriptJSX, u"switch (a) {^\n}", {1, false}},
    {Language::JavaScriptJSX, u"class A {\n  b = 1;^\n}", {1, false}},
    {Language::PHP, u"<?php\nfunction f() {^}", {1, true}},
    {Language::PHP, u"<?php\nfunction f() {\n  if ($a) {^\n  }\n}", {2, false}},
    {Language::PHP, u"<?php\n$a = [^];", {1, false}},
    {Language::PHP, u"<?php\n  $a = 1;^", {1, false}},
    {Language::Python, u"def f():^", {1, false}},
    {Language::Python, u"class A:\n  def f(self):^", {2, false}},
    {Language::Python, u"if a:\n  b()\nelse:^", {1, false}},
    {Language::Python, u"def f():\n  a = 1^", {1, false}},
    {Language::Ruby, u"class A^\nend", {1, false}},
    {Language::Ruby, u"class A\n  def b^\n  end\nend", {2, false}},
    {Language::Ruby, u"a.each do |b|^\nend", {1, false}},
    {Language::Ruby, u"if a\n  b\nelse^\n  c\nend", {1, false}},
    {Language::Ruby, u"def a\n  b = 1^\nend", {1, false}},
    {Language::Rust, u"fn f() {^}", {1, true}},
    {Language::Rust, u"fn f() {\n  match a {^\n  }\n}", {2, false}},
    {Language::Rust, u"struct A {^}", {1, true}},
    {Language::Rust, u"fn f() {\n  a();^\n}", {1, false}},
    {Language::Swift, u"func f() {^}", {1, true}},
    {Language::Swift, u"class A {\n  var b: Int {^\n  }\n}", {2, false}},
    {Language::Swift, u"let a = [^]", {1, true}},
    {Language::Swift, u"func f() {\n  a()^\n}", {1, false}},
    {Language::Go, u"func f() {^}", {0, false}}, // has no scopes
};

TEST(CatalogueIndentation, IsWhatALineBreakNeeds) {
    for (const auto& [language, text, expected] : cases)
        EXPECT_EQ(lineBreak(language, std::u16string(text)), expected)
            << entryOf(language).name << " after " << std::string(text.begin(), text.end());
}

} // namespace
} // namespace tessarine::languages
