#pragma once

#include "platform/foundation/AttributedString.h"
#include "platform/highlightr/HighlightProcess.h"
#include "platform/highlightr/Theme.h"

#include <QtCore/QStringList>

#include <memory>
#include <mutex>
#include <optional>

namespace platform {

// Syntax highlighting in a theme. Highlighting itself happens in a helper process; see HighlightProcess for
// its cap and its deadline, past which a text comes back without colours. Any thread.
class Highlightr {
public:
    // How far automatic detection looks: at a short leading sample, or at a longer one.
    enum class Rendering { Fast, Full };

    // In the theme "xcode". `process` outlives this.
    explicit Highlightr(HighlightProcess& process = HighlightProcess::shared());

    // Blocks, so not for the main thread. No language means automatic detection; a language that the
    // highlighter does not know gives no colours. The text itself always comes back as it was.
    AttributedString highlight(const QString& code, const std::optional<QString>& language,
                               Rendering rendering) const;

    // The same where somebody may cease to want the answer while the request waits for its turn. Nothing
    // then, and where the text comes back without colours for another reason than that it has none.
    std::optional<AttributedString> highlightIfWanted(const QString& code,
                                                      const std::optional<QString>& language,
                                                      Rendering rendering,
                                                      const HighlightProcess::IsWanted& isWanted) const;

    // False for an unknown name, and then the theme stays.
    bool setTheme(const QString& name);
    std::shared_ptr<const Theme> theme() const;

    // Sorted by name. Cheap, as is the next: no process is asked.
    static QStringList availableThemes();
    // In the framework's order.
    static QStringList supportedLanguages();

private:
    HighlightProcess* m_process;
    mutable std::mutex m_mutex; // guards what follows
    std::shared_ptr<const Theme> m_theme;
};

} // namespace platform
