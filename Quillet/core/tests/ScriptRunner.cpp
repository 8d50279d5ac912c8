// Goes on with the script on the library at XDG_DATA_HOME, and says on standard output which step is about to
// be saved and which save returned. The argument is the number of the last step.

#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/tests/LibraryScript.h"
#include "platform/foundation/Log.h"

#include <QtCore/QCoreApplication>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    auto& stack = quillet::CoreDataStack::shared();
    quillet::LibraryScript script(stack.viewContext());
    if (stack.health().value().loadError || argc != 2) return 2;
    const int last = QByteArray(argv[1]).toInt();
    for (int step = script.lastStep() + 1; step <= last; ++step) {
        script.make(step);
        platform::logLine(QStringLiteral("saving %1").arg(step));
        stack.saveContext();
        if (stack.health().value().saveError) return 1;
        platform::logLine(QStringLiteral("saved %1").arg(step));
    }
}
