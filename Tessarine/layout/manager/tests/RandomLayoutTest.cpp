#include "Tessarine/layout/manager/tests/LaidOutText.h"
#include "Tessarine/syntax/tests/RandomSource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

using namespace tessarine;

namespace {

constexpr std::u16string_view pieces[] = {u"\n",
                                          u"\n",
                                          u"\r\n",
                                          u"word ",
                                          u"words, longer ones ",
                                          u"\t",
                                          u"abcdefghijklmnopqrstuvwxyz",
                                          u" ",
                                          u"\u4E00\u4E01",
                                          u"x",
                                          u"\U0001F600"};

// Where the text at the top of the screen stands there: the row at the top if it is known, else what is below
// the line at the top.
struct TopText {
    std::int64_t location;
    double y; // on the screen
};

class RandomLayout {
public:
    explicit RandomLayout(std::uint32_t seed)
        : m_random(seed)
        , m_text(someText(60), {.width = 130, .height = 170}, seed % 3 == 0 ? 17 : 11) {
        m_text.layout().setShowLineNumbers(seed % 2 == 0);
        if (seed % 4 > 1) m_text.layout().setTextContainerInset({.top = 9.5, .left = 3, .bottom = 4});
        m_text.layout().layoutIfNeeded();
    }

    std::optional<std::string> step() {
        switch (m_random.below(6)) {
        case 0:
        case 1:
            return scroll(m_text.offset() + static_cast<double>(m_random.below(200)) - 100);
        case 2:
            return scroll(static_cast<double>(m_random.below(static_cast<std::int64_t>(lowest()) + 1)));
        case 3:
            return resize();
        case 4:
            return change();
        default:
            return edit();
        }
    }

private:
    std::u16string someText(std::int64_t mostPieces) {
        std::u16string text;
        for (std::int64_t count = m_random.below(mostPieces); count > 0; --count)
            text += pieces[static_cast<std::size_t>(m_random.below(std::size(pieces)))];
        return text;
    }

    double lowest() const {
        return std::max(0.0, m_text.scrollView->contentSize().height - m_text.scrollView->frame().height);
    }

    std::optional<std::string> scroll(double y) {
        const double target = std::clamp(y, 0.0, lowest());
        const auto top = topText(target);
        m_text.scrollTo(target);
        return settled(top);
    }

    std::optional<std::string> resize() {
        const Size size{.width = static_cast<double>(60 + m_random.below(300)),
                        .height = static_cast<double>(50 + m_random.below(200))};
        const auto top = topText(m_text.offset());
        m_text.resize(size);
        return settled(top);
    }

    // The rows at the top may become others then.
    std::optional<std::string> change() {
        m_text.layout().setLineHeightMultiplier(1 + 0.25 * static_cast<double>(m_random.below(4)));
        m_text.layout().setKern(static_cast<double>(m_random.below(3)));
        m_text.layout().setLineWrappingEnabled(m_random.below(4) > 0);
        m_text.layout().layoutIfNeeded();
        return m_text.fault();
    }

    std::optional<std::string> edit() {
        const std::int64_t length = m_text.view->document().stringView->length();
        const std::int64_t location = m_random.below(length + 1);
        const std::int64_t removed = m_random.below(std::min<std::int64_t>(length - location, 40) + 1);
        m_text.edit({location, removed}, someText(length > 1'500 ? 3 : 12));
        return m_text.fault();
    }

    std::optional<TopText> topText(double offset) {
        const LayoutGeometry& geometry = m_text.layout().geometry();
        DocumentLineNode* const line = m_text.lines().lineContainingYOffset(geometry.lineY(offset));
        if (!line || geometry.topOf(*line) >= offset) return std::nullopt; // no line begins above the screen
        const LineFragments& rows = m_text.layout().lineController(*line).lineFragments();
        if (!rows.empty() && rows.back()->range.limit() > line->value()) return std::nullopt; // edited since
        for (const auto& row : rows)
            if (geometry.topOf(*line) + row->maxY() > offset)
                return TopText{line->location() + row->range.location,
                               geometry.topOf(*line) + row->yPosition - offset};
        return TopText{line->location() + line->value(),
                       geometry.topOf(*line) + line->data().lineHeight() - offset};
    }

    // Nothing can stay in place at the very top, nor a row that has become so low that it is off the screen.
    std::optional<std::string> settled(const std::optional<TopText>& before) {
        if (const auto fault = m_text.fault()) return fault;
        if (!before || m_text.offset() <= 0) return std::nullopt;
        const auto [top, bottom] = rowAt(before->location);
        if (before->y + bottom - top <= 0 || std::abs(top - before->y) < 1e-6) return std::nullopt;
        std::ostringstream message;
        message << "the text at " << before->location << " has moved from " << before->y << " to " << top;
        return message.str();
    }

    // On the screen. Behind the last line a row without height.
    std::pair<double, double> rowAt(std::int64_t location) {
        DocumentLineNode& line = m_text.lines().lineContaining(location);
        const double lineTop = m_text.layout().geometry().topOf(line) - m_text.offset();
        const double lineBottom = lineTop + line.data().lineHeight();
        if (location == line.location() + line.value()) return {lineBottom, lineBottom};
        for (const auto& row : m_text.layout().lineController(line).lineFragments())
            if (location < line.location() + row->range.limit())
                return {lineTop + row->yPosition, lineTop + row->maxY()};
        return {lineTop, lineBottom};
    }

    RandomSource m_random;
    LaidOutText m_text;
};

TEST(RandomLayout, KeepsTheScreenFilledAndItsTopInPlace) {
    for (std::uint32_t seed = 0; seed < 120; ++seed) {
        RandomLayout script(seed);
        for (int step = 0; step < 60; ++step)
            ASSERT_EQ(script.step(), std::nullopt) << "seed " << seed << ", step " << step;
    }
}

} // namespace
