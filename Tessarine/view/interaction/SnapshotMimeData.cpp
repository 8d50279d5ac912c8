#include "Tessarine/view/interaction/SnapshotMimeData.h"

#include <QtCore/QStringList>

#include <utility>

namespace tessarine {

namespace {

const QLatin1String plainText("text/plain");

} // namespace

SnapshotMimeData::SnapshotMimeData(TextSnapshot text, const TextRange& range)
    : m_text(std::move(text))
    , m_range(range) {}

QStringList SnapshotMimeData::formats() const {
    return {plainText};
}

bool SnapshotMimeData::hasFormat(const QString& mimeType) const {
    return mimeType == plainText;
}

QVariant SnapshotMimeData::retrieveData(const QString& mimeType, QMetaType /*type*/) const {
    if (mimeType != plainText) return {};
    QString text(static_cast<qsizetype>(m_range.length), Qt::Uninitialized);
    m_text.copy(m_range.location, m_range.length, reinterpret_cast<char16_t*>(text.data()));
    return text;
}

} // namespace tessarine
