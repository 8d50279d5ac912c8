#include "examples/editor/window/EditorWindow.h"

#include <QtCore/QCommandLineParser>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>

// tessarine-editor [FILE...]
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tessarine-editor"));
    QApplication::setStyle(
        QStyleFactory::create(QStringLiteral("Fusion"))); // follows the themes' colours whole
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A code editor on the engine Tessarine."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("Files to open."),
                                 QStringLiteral("[file...]"));
    parser.process(application);
    tessarine::editor::EditorServices services;
    tessarine::editor::EditorWindow window(services);
    window.show();
    for (const QString& path : parser.positionalArguments())
        window.openFile(path);
    return QApplication::exec();
}
