#include "platform/screens/text/LineBreaks.h"

#include <algorithm>
#include <array>
#include <optional>

namespace platform {

namespace {

// U+FDD0 and U+FDD1 are what the toolkit marks its frames with; it breaks a line at them.
const std::array<QString, 6> spellings{QStringLiteral("\n"),
                                       QStringLiteral("\r\n"),
                                       QStringLiteral("\r"),
                                       QString(QChar(char16_t{0x2029})),
                                       QString(QChar(char16_t{0xFDD0})),
                                       QString(QChar(char16_t{0xFDD1}))};

std::optional<LineBreak> breakAt(const QString& text, qsizetype at) {
    switch (text[at].unicode()) {
    case u'\n':
        return LineBreak::Lf;
    case u'\r':
        return at + 1 < text.size() && text[at + 1] == u'\n' ? LineBreak::CrLf : LineBreak::Cr;
    case 0x2029:
        return LineBreak::ParagraphSeparator;
    case 0xFDD0:
        return LineBreak::FrameStart;
    case 0xFDD1:
        return LineBreak::FrameEnd;
    default:
        return std::nullopt;
    }
}

} // namespace

SplitText splitBreaks(const QString& text) {
    SplitText split;
    split.text.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto found = breakAt(text, i);
        split.text.append(found ? QChar(u'\n') : text[i]);
        if (!found) continue;
        split.breaks.push_back(*found);
        if (*found == LineBreak::CrLf) ++i;
    }
    return split;
}

std::vector<AttributeRun> splitRuns(const QString& text, const std::vector<AttributeRun>& runs) {
    qsizetype at = 0;
    qsizetype dropped = 0; // units that one '\n' for two has cost before `at`
    const auto moved = [&](qsizetype to) {
        for (; at < std::min(to, text.size()); ++at)
            if (at > 0 && text[at] == u'\n' && text[at - 1] == u'\r') ++dropped;
        return to - dropped;
    };
    std::vector<AttributeRun> split;
    split.reserve(runs.size());
    for (const AttributeRun& run : runs) {
        const qsizetype start = moved(run.start);
        const qsizetype limit = moved(run.limit);
        if (start < limit) split.push_back({start, limit, run.attributes});
    }
    return split;
}

QString joinBreaks(const QString& text, const std::vector<LineBreak>& breaks) {
    QString joined;
    joined.reserve(text.size() + static_cast<qsizetype>(breaks.size()));
    auto next = breaks.begin();
    for (const QChar unit : text) {
        if (unit == u'\n' && next != breaks.end())
            joined.append(spellings[static_cast<std::size_t>(*next++)]);
        else
            joined.append(unit);
    }
    return joined;
}

LineBreak dominantBreak(const std::vector<LineBreak>& breaks) {
    std::array<std::size_t, spellings.size()> counts{};
    for (const LineBreak each : breaks)
        ++counts[static_cast<std::size_t>(each)];
    return static_cast<LineBreak>(std::ranges::max_element(counts) - counts.begin());
}

} // namespace platform
