#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/document/TextSnapshot.h"

#include <QtCore/QMimeData>

namespace tessarine {

// Part of a text as it is now, for the clipboard or a drag: taken out only if somebody asks for it.
class SnapshotMimeData final : public QMimeData {
public:
    // The range lies in the text.
    SnapshotMimeData(TextSnapshot text, const TextRange& range);

    QStringList formats() const override;
    bool hasFormat(const QString& mimeType) const override;

protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

private:
    const TextSnapshot m_text;
    const TextRange m_range;
};

} // namespace tessarine
