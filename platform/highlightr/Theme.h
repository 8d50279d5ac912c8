#pragma once

#include "platform/foundation/AttributedString.h"
#include "platform/highlightr/StyleSheet.h"

#include <QtCore/QString>

#include <vector>

namespace platform {

// One of the highlighter's colour themes. Immutable, so any thread may read it.
class Theme {
public:
    // From the CSS of one theme. A theme without colours of its own is black on white.
    Theme(QString name, const QString& css);

    const QString& name() const { return m_name; }

    QRgb themeBackgroundColor() const { return m_background; }

    QRgb foregroundColor() const { return m_foreground; }

    // How text in these scopes looks, from outside in, inside code of this language.
    TextAttributes attributesFor(const QString& language, const std::vector<QString>& scopePath) const;

private:
    QString m_name;
    std::vector<highlight::Rule> m_rules; // weakest first
    QRgb m_background = 0xFFFFFFFF;
    QRgb m_foreground = 0xFF000000;
};

} // namespace platform
