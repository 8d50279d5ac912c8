#pragma once

#include "platform/highlightr/Highlightr.h"

#include <QtCore/QStringList>

#include <optional>

namespace quillet {

// The languages that a snippet can have. A shared object; main thread.
class Languages {
public:
    static Languages& shared();

    // In the highlighter's order, but for one that is kept out by its name. Found once.
    const QStringList& languages();

private:
    std::unique_ptr<platform::Highlightr> highlighr = std::make_unique<platform::Highlightr>();
    std::optional<QStringList> m_languages;
};

} // namespace quillet
