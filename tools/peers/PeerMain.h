#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtWidgets/QApplication>

namespace tessarine {

// The main function of peers: calls the one that the first argument names with the bytes of the file that the
// second does.
template <class Scintilla, class TextDocument>
int runPeer(int argc, char** argv, Scintilla&& scintilla, TextDocument&& textDocument) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    QFile file(arguments.value(2));
    if (!file.open(QIODevice::ReadOnly)) return 1;
    const QByteArray bytes = file.readAll();
    if (arguments.value(1) == QLatin1String("qscintilla"))
        scintilla(bytes);
    else
        textDocument(bytes);
    return 0;
}

} // namespace tessarine
