#include "Quillet/core/bench/BenchLibrary.h"

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/Folder.h"
#include "Quillet/core/Snippet.h"
#include "Quillet/core/Tag.h"

#include <array>

namespace quillet {

namespace {

constexpr std::array languages{"swift", "c",   "cpp", "python", "rust", "go",
                               "java",  "sql", "css", "xml",    "bash", "ruby"};

} // namespace

bool fillBenchLibrary(int snippets) {
    std::vector<std::shared_ptr<Tag>> tags;
    std::vector<std::shared_ptr<Folder>> folders;
    for (int i = 0; i < 20; ++i)
        tags.push_back(Tag::create(QStringLiteral("Tag %1").arg(i), static_cast<qint16>(i % 10), {}));
    for (int i = 0; i < 50; ++i)
        folders.push_back(Folder::create(QStringLiteral("Folder %1").arg(i), {}));
    const QString code =
        QStringLiteral("int f(int x) { return x * 42; } // one of many lines\n").repeated(38);
    for (int i = 0; i < snippets; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const auto snippet = Snippet::create(QStringLiteral("Snippet %1").arg(i * 7919LL % snippets), {},
                                             code, QString::fromLatin1(languages[index % languages.size()]));
        snippet->addToMany(Snippet::Tags, *tags[index % tags.size()]);
        snippet->setToOne(Snippet::InFolder, folders[index % folders.size()].get());
    }
    CoreDataStack::shared().save(SaveReason::AddedSnippet);
    return !CoreDataStack::shared().health().value().saveError;
}

} // namespace quillet
