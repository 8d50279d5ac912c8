// Saves new snippets and edits old ones until it is killed, and says on standard output which save returned.
// The data directory comes from XDG_DATA_HOME.

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/Snippet.h"
#include "platform/foundation/Log.h"

#include <QtCore/QCoreApplication>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    auto& stack = quillet::CoreDataStack::shared();
    const auto stored = stack.viewContext().fetch({QStringLiteral("Snippet"), {}, {}, {}});
    for (auto number = stored.size();; ++number) {
        const QString text = QString::number(number);
        const auto snippet = quillet::Snippet::create(text, {}, text.repeated(500), QStringLiteral("swift"));
        stack.save(quillet::SaveReason::AddedSnippet);
        snippet->setNotes(QStringLiteral("edited ") + text);
        stack.save(quillet::SaveReason::AddedSnippet);
        if (stack.health().value().saveError) return 1;
        platform::logLine(QStringLiteral("returned ") + text);
    }
}
