#include "Quillet/screens/details/Languages.h"

#include "platform/highlightr/Highlightr.h"

namespace quillet {

const QStringList& languages() {
    static const QStringList names = [] {
        QStringList supported = platform::Highlightr::supportedLanguages();
        supported.removeIf([](const QString& name) { return name.contains(QStringLiteral("fuck")); });
        return supported;
    }();
    return names;
}

} // namespace quillet
