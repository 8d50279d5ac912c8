// The languages as programs ask for them: by name, by file, by what injects them.
#include "languages/catalogue/Catalogue.h"

#include "languages/catalogue/CatalogueEntry.h"
#include "languages/catalogue/CatalogueLanguageProvider.h"
#include "languages/catalogue/LanguageNames.h"
#include "languages/catalogue/LanguageNamesTable.h"
#include "languages/catalogue/QueryBundles.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <sstream>
#include <thread>
#include <vector>

namespace tessarine::languages {

namespace {

std::vector<std::string> words(std::string_view list) {
    std::istringstream stream{std::string(list)};
    return {std::istream_iterator<std::string>(stream), {}};
}

using Unknown = std::optional<Language>;

TEST(LanguageNamesTest, AreOfOneLanguageEach) {
    for (const auto list : {&LanguageNames::names, &LanguageNames::extensions, &LanguageNames::files,
                            &LanguageNames::interpreters}) {
        std::set<std::string> known;
        for (const LanguageNames& names : languageNames) {
            EXPECT_TRUE((names.*list).empty() ||
                        ((names.*list).starts_with(' ') && (names.*list).ends_with(' ')));
            for (const std::string& word : words(names.*list))
                EXPECT_TRUE(known.insert(word).second) << word;
        }
    }
}

TEST(LanguageNamesTest, AreThereForEveryLanguage) {
    ASSERT_EQ(std::size(languageNames), catalogueEntries().size());
    for (const CatalogueEntry& entry : catalogueEntries()) {
        const LanguageNames& names = languageNames[static_cast<std::size_t>(entry.language)];
        EXPECT_EQ(names.language, entry.language);
        EXPECT_EQ(languageNamed(entry.name), entry.language) << entry.name;
    }
}

TEST(LanguageNamesTest, AreFoundInAnyCase) {
    EXPECT_EQ(languageNamed("C++"), Language::CPP);
    EXPECT_EQ(languageNamed("c#"), Language::CSharp);
    EXPECT_EQ(languageNamed("YML"), Language::YAML);
    EXPECT_EQ(languageNamed("Shell"), Language::Bash);
    EXPECT_EQ(languageNamed("js"), Language::JavaScript);
    EXPECT_EQ(languageNamed("jsonc"), Language::JSON5);
    for (const char* name : {"", " ", "js ts", "brainfudge", "j", "s", "\xC3\x9F"})
        EXPECT_EQ(languageNamed(name), Unknown()) << name;
}

TEST(LanguageNamesTest, ComeFromAFilesName) {
    EXPECT_EQ(languageOfFile("/home/a.b/main.c"), Language::C);
    EXPECT_EQ(languageOfFile("README.MD"), Language::Markdown);
    EXPECT_EQ(languageOfFile("view.tsx"), Language::TSX);
    EXPECT_EQ(languageOfFile("Gemfile"), Language::Ruby);
    EXPECT_EQ(languageOfFile("project/tsconfig.json"), Language::JSON5);
    EXPECT_EQ(languageOfFile("a/package.json"), Language::JSON);
    EXPECT_EQ(languageOfFile(".bashrc"), Language::Bash);
    for (const char* path : {"", "/", "a.", "c", "folder.c/file", "a.c d", ". "})
        EXPECT_EQ(languageOfFile(path), Unknown()) << path;
}

TEST(LanguageNamesTest, ComeFromAnInterpreterWhereTheNameTellsNothing) {
    EXPECT_EQ(languageOfFile("run", "#!/bin/sh"), Language::Bash);
    EXPECT_EQ(languageOfFile("run", "#! /usr/bin/env python3.11 -u\r\n"), Language::Python);
    EXPECT_EQ(languageOfFile("run", "#!/usr/bin/env -S A=b node --inspect"), Language::JavaScript);
    EXPECT_EQ(languageOfFile("run.rb", "#!/bin/sh"), Language::Ruby);
    for (const char* line : {"", "#!", "#!/usr/bin/env", "#!/usr/bin/env -S", "/bin/sh", "#!/bin/3", "#!///"})
        EXPECT_EQ(languageOfFile("run", line), Unknown()) << line;
}

TEST(CatalogueLanguageProviderTest, KnowsWhatQueriesInject) {
    const CatalogueLanguageProvider provider;
    EXPECT_EQ(provider.treeSitterLanguage("Py"), treeSitterLanguage(Language::Python));
    EXPECT_EQ(provider.treeSitterLanguage("markdown_inline"), markdownInlineLanguage());
    EXPECT_EQ(provider.treeSitterLanguage("no such language"), nullptr);
}

TEST(CatalogueLanguages, AreMadeOnceForAllThreads) {
    std::vector<std::shared_ptr<const TreeSitterLanguage>> seen(4);
    std::vector<std::jthread> threads;
    for (auto& language : seen)
        threads.emplace_back([&] { language = treeSitterLanguage(Language::Go); });
    threads.clear();
    for (const auto& language : seen)
        EXPECT_EQ(language, treeSitterLanguage(Language::Go));
}

TEST(CatalogueLanguages, HaveInjectionsAndScopesAsTheirEntriesSay) {
    for (const CatalogueEntry& entry : catalogueEntries()) {
        const auto language = treeSitterLanguage(entry.language);
        EXPECT_EQ(language->injectionsQuery().has_value(), !entry.injections.empty()) << entry.name;
        EXPECT_EQ(language->indentationScopes().has_value(), entry.indentationScopes != nullptr)
            << entry.name;
    }
}

TEST(QueryBundlesDeathTest, StopTheProgramWhereOneIsMissing) {
    EXPECT_DEATH(queryFile("Klingon", "highlights"),
                 "unable to find bundle named TreeSitterLanguages_TreeSitterKlingonQueries");
    EXPECT_DEATH(queryFile("TOML", "locals"), "unable to find .*queries/locals.scm");
    EXPECT_DEATH(
        {
            setQueryBundlesFolder("/nowhere");
            treeSitterLanguage(Language::TOML);
        },
        "unable to find bundle named TreeSitterLanguages_TreeSitterTOMLQueries");
}

} // namespace
} // namespace tessarine::languages
