#include "Quillet/screens/details/Languages.h"

namespace quillet {

Languages& Languages::shared() {
    static Languages languages;
    return languages;
}

const QStringList& Languages::languages() {
    if (!m_languages) {
        m_languages = highlighr ? highlighr->supportedLanguages() : QStringList();
        m_languages->removeIf([](const QString& name) { return name.contains(QStringLiteral("fuck")); });
    }
    return *m_languages;
}

} // namespace quillet
