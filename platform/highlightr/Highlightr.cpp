#include "platform/highlightr/Highlightr.h"

#include "platform/foundation/FatalError.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QHash>

namespace platform {

namespace {

// Code units. Detection tries every language, at some 25 ms a kilobyte. The second kilobyte makes it right no
// more often than the first.
constexpr quint32 fastSample = 1024;
constexpr quint32 fullSample = 16384;

const QString themeFolder = QStringLiteral(":/highlightr/themes/");

QString readResource(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Each theme's CSS is parsed once in the life of the process.
std::shared_ptr<const Theme> themeNamed(const QString& name) {
    static std::mutex mutex;
    static QHash<QString, std::shared_ptr<const Theme>> parsed;
    const std::scoped_lock lock(mutex);
    if (const auto found = parsed.constFind(name); found != parsed.constEnd()) return *found;
    if (!Highlightr::availableThemes().contains(name)) return nullptr;
    return *parsed.insert(name, std::make_shared<const Theme>(name, readResource(themeFolder + name)));
}

AttributedString coloured(const QString& code, const HighlightedCode& highlighted, const Theme& theme) {
    std::vector<TextAttributes> byPath;
    byPath.reserve(highlighted.paths.size());
    for (const auto& path : highlighted.paths)
        byPath.push_back(theme.attributesFor(highlighted.language, path));
    AttributedString result{code, {}};
    for (const auto& run : highlighted.runs) {
        const TextAttributes& attributes = byPath[run.path];
        if (attributes == TextAttributes()) continue;
        if (!result.runs.empty() && result.runs.back().limit == run.start &&
            result.runs.back().attributes == attributes)
            result.runs.back().limit = run.limit;
        else
            result.runs.push_back({run.start, run.limit, attributes});
    }
    return result;
}

} // namespace

Highlightr::Highlightr(HighlightProcess& process)
    : m_process(&process) {
    if (!setTheme(QStringLiteral("xcode"))) fatalError("The theme xcode is missing from the program");
}

AttributedString Highlightr::highlight(const QString& code, const std::optional<QString>& language,
                                       Rendering rendering) const {
    return highlightIfWanted(code, language, rendering, {}).value_or(AttributedString{code, {}});
}

std::optional<AttributedString>
Highlightr::highlightIfWanted(const QString& code, const std::optional<QString>& language,
                              Rendering rendering, const HighlightProcess::IsWanted& isWanted) const {
    const auto highlighted = m_process->highlight(
        code, language, rendering == Rendering::Fast ? fastSample : fullSample, isWanted);
    if (!highlighted) return std::nullopt;
    return coloured(code, *highlighted, *theme());
}

bool Highlightr::setTheme(const QString& name) {
    auto theme = themeNamed(name);
    if (!theme) return false;
    const std::scoped_lock lock(m_mutex);
    m_theme = std::move(theme);
    return true;
}

std::shared_ptr<const Theme> Highlightr::theme() const {
    const std::scoped_lock lock(m_mutex);
    return m_theme;
}

QStringList Highlightr::availableThemes() {
    return QDir(themeFolder).entryList(QDir::Files, QDir::Name);
}

QStringList Highlightr::supportedLanguages() {
    static const QStringList names =
        readResource(QStringLiteral(":/highlightr/languages.txt")).split(u'\n', Qt::SkipEmptyParts);
    return names;
}

} // namespace platform
