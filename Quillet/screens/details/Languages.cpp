#include "Quillet/screens/details/Languages.h"

#include "platform/foundation/NeverDestroyed.h"

namespace quillet {

Languages& Languages::shared() {
    static platform::NeverDestroyed<Languages> languages;
    return languages.get();
}

const QStringList& Languages::languages() {
    if (!m_languages) {
        m_languages = highlighr ? highlighr->supportedLanguages() : QStringList();
        m_languages->removeIf([](const QString& name) { return name.contains(QStringLiteral("fuck")); });
    }
    return *m_languages;
}

} // namespace quillet
