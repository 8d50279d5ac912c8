#include "platform/highlightr/HighlightedCode.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace platform {

std::optional<HighlightedCode> HighlightedCode::parse(const QString& answer, qsizetype length) {
    const QJsonObject object = QJsonDocument::fromJson(answer.toUtf8()).object();
    // The highlighter has dropped or doubled text where the lengths differ.
    if (object.value(QLatin1String("length")).toInteger(-1) != length) return std::nullopt;

    HighlightedCode code;
    code.language = object.value(QLatin1String("language")).toString();
    const QJsonArray paths = object.value(QLatin1String("paths")).toArray();
    for (const auto& path : paths) {
        const QStringList scopes = path.toString().split(u' ', Qt::SkipEmptyParts);
        code.paths.emplace_back(scopes.begin(), scopes.end());
    }
    const QJsonArray numbers = object.value(QLatin1String("runs")).toArray();
    if (numbers.size() % 3 != 0) return std::nullopt;
    code.runs.reserve(static_cast<std::size_t>(numbers.size() / 3));
    qsizetype last = 0;
    for (qsizetype i = 0; i < numbers.size(); i += 3) {
        const qint64 start = numbers[i].toInteger(-1);
        const qint64 size = numbers[i + 1].toInteger(-1);
        const qint64 path = numbers[i + 2].toInteger(-1);
        if (start < last || size <= 0 || size > length - start || path < 0 || path >= paths.size())
            return std::nullopt;
        last = start + size;
        code.runs.push_back({start, last, static_cast<std::size_t>(path)});
    }
    return code;
}

} // namespace platform
