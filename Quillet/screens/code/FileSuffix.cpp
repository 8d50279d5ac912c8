#include "Quillet/screens/code/FileSuffix.h"

#include <QtCore/QHash>

namespace quillet {

QString fileSuffixOf(const QString& language) {
    static const QHash<QString, QString> others{
        {QStringLiteral("bash"), QStringLiteral("sh")},
        {QStringLiteral("csharp"), QStringLiteral("cs")},
        {QStringLiteral("erlang"), QStringLiteral("erl")},
        {QStringLiteral("fsharp"), QStringLiteral("fs")},
        {QStringLiteral("haskell"), QStringLiteral("hs")},
        {QStringLiteral("javascript"), QStringLiteral("js")},
        {QStringLiteral("julia"), QStringLiteral("jl")},
        {QStringLiteral("kotlin"), QStringLiteral("kt")},
        {QStringLiteral("markdown"), QStringLiteral("md")},
        {QStringLiteral("objectivec"), QStringLiteral("m")},
        {QStringLiteral("ocaml"), QStringLiteral("ml")},
        {QStringLiteral("perl"), QStringLiteral("pl")},
        {QStringLiteral("plaintext"), QStringLiteral("txt")},
        {QStringLiteral("powershell"), QStringLiteral("ps1")},
        {QStringLiteral("python"), QStringLiteral("py")},
        {QStringLiteral("ruby"), QStringLiteral("rb")},
        {QStringLiteral("rust"), QStringLiteral("rs")},
        {QStringLiteral("shell"), QStringLiteral("sh")},
        {QStringLiteral("typescript"), QStringLiteral("ts")},
        {QStringLiteral("yaml"), QStringLiteral("yml")},
    };
    return others.value(language, language);
}

} // namespace quillet
