#include "Quillet/core/LibraryMirror.h"

#include "Quillet/core/Segment.h"
#include "platform/mirror/TextValue.h"

#include <QtCore/QDateTime>

namespace quillet {

namespace {

const QString snippetEntity = QStringLiteral("Snippet");
const QString segmentEntity = QStringLiteral("Segment");
const QString snippetProperty = QStringLiteral("snippet");

// The 16 bytes of the snippet that the text belongs to.
std::optional<QCborValue> snippetOf(const platform::DisplacedText& text) {
    if (text.state.entity == snippetEntity) return QCborValue(text.object.toRfc4122());
    const auto found = text.state.registers.find(snippetProperty);
    if (text.state.entity != segmentEntity || found == text.state.registers.end()) return std::nullopt;
    return found->second.value;
}

std::optional<std::pair<QUuid, platform::ObjectState>> conflictCopy(const platform::DisplacedText& text) {
    const auto snippet = snippetOf(text);
    if (!snippet) return std::nullopt;
    const auto written = platform::HybridClock::toWall(text.stamp.time);
    platform::ObjectState segment;
    segment.entity = segmentEntity;
    segment.writeText(QStringLiteral("code"), text.stamp, text.value);
    segment.write(QStringLiteral("creationDate"), text.stamp, QCborValue(qint64{written}));
    segment.write(QStringLiteral("title"), text.stamp,
                  platform::textValue(conflictTitle(QDateTime::fromMSecsSinceEpoch(written))));
    segment.write(snippetProperty, text.stamp, *snippet);
    return std::pair(platform::conflictCopyId(text), std::move(segment));
}

} // namespace

platform::MirrorPolicy libraryMirrorPolicy() {
    platform::MirrorPolicy policy;
    policy.conflictCopy = &conflictCopy;
    return policy;
}

} // namespace quillet
