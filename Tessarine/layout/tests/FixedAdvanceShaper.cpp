#include "Tessarine/layout/tests/FixedAdvanceShaper.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tessarine {

namespace {

bool isLineBreak(char16_t unit) {
    return unit == u'\n' || unit == u'\r' || unit == 0x2028 || unit == 0x2029 || unit == 0x85;
}

bool isTrailingSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

double widthOf(char16_t unit, const TextAttributes& attributes, double x) {
    if (isLineBreak(unit) || isTrailingSurrogate(unit)) return 0;
    const double kern = attributes.kern.value_or(0);
    if (unit == u'\t') {
        const double interval = attributes.defaultTabInterval.value_or(40);
        return (std::floor(x / interval) + 1) * interval - x + kern;
    }
    const bool isBold = attributes.font && attributes.font->traits.contains(FontTraits::bold);
    return (unit >= 0x1100 ? 20 : 10) + (isBold ? 1 : 0) + kern;
}

// The places where the units of a stretch of a row end, as long as `goesOn` takes them.
template <class GoesOn>
std::vector<double> ends(const AttributedString& string, std::int64_t start, GoesOn goesOn) {
    constexpr std::int64_t pieceLength = 64;
    std::vector<double> found;
    double x = 0;
    for (std::int64_t at = start; at < string.length();) {
        const auto [range, attributes] = string.runAt(at);
        const std::int64_t limit = std::min(range.limit(), at + pieceLength);
        for (const char16_t unit : string.substring({at, limit - at})) {
            x += widthOf(unit, attributes, x);
            if (!goesOn(at++, x)) return found;
            found.push_back(x);
        }
    }
    return found;
}

class FixedAdvanceLine final : public TextLine {
public:
    FixedAdvanceLine(const TextRange& range, std::vector<double> unitEnds)
        : m_range(range)
        , m_ends(std::move(unitEnds)) {}

    TextRange stringRange() const override { return m_range; }

    TypographicBounds typographicBounds() const override {
        return {.width = m_ends.empty() ? 0 : m_ends.back(), .ascent = 8, .descent = 2, .leading = 1};
    }

    double offsetForStringIndex(std::int64_t index) const override {
        const std::int64_t units = std::min(index, m_range.limit()) - m_range.location;
        return units <= 0 ? 0 : m_ends[static_cast<std::size_t>(units - 1)];
    }

    bool runsFromLeftToRight() const override { return true; }

    std::int64_t stringIndexForPosition(double x) const override {
        std::int64_t index = m_range.location;
        while (index < m_range.limit() &&
               (offsetForStringIndex(index) + offsetForStringIndex(index + 1)) / 2 < x)
            ++index;
        return index;
    }

private:
    const TextRange m_range;
    const std::vector<double> m_ends;
};

class FixedAdvanceTypesetter final : public Typesetter {
public:
    FixedAdvanceTypesetter(std::shared_ptr<const AttributedString> string, std::int64_t overshoot,
                           std::shared_ptr<std::int64_t> lineCount)
        : m_string(std::move(string))
        , m_overshoot(overshoot)
        , m_lineCount(std::move(lineCount)) {}

    std::int64_t suggestLineBreak(std::int64_t start, double width) override {
        const auto fitting = ends(*m_string, start, [&](std::int64_t, double x) { return x <= width; });
        std::int64_t length = static_cast<std::int64_t>(fitting.size()) + m_overshoot;
        length = std::clamp<std::int64_t>(length, 1, m_string->length() - start);
        const std::int64_t next = start + length;
        return next < m_string->length() && isTrailingSurrogate(m_string->characterAt(next)) ? length + 1
                                                                                             : length;
    }

    std::shared_ptr<const TextLine> createLine(const TextRange& range) override {
        ++*m_lineCount;
        return std::make_shared<FixedAdvanceLine>(
            range,
            ends(*m_string, range.location, [&](std::int64_t at, double) { return at < range.limit(); }));
    }

private:
    const std::shared_ptr<const AttributedString> m_string;
    const std::int64_t m_overshoot;
    const std::shared_ptr<std::int64_t> m_lineCount;
};

} // namespace

std::unique_ptr<Typesetter>
FixedAdvanceShaper::createTypesetter(std::shared_ptr<const AttributedString> attributedString) const {
    return std::make_unique<FixedAdvanceTypesetter>(std::move(attributedString), overshoot, lineCount);
}

} // namespace tessarine
