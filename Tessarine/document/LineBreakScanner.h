#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tessarine {

// A line break: [location, location + length) in code units.
struct LineBreak {
    std::int64_t location;
    std::int64_t length;

    std::int64_t end() const { return location + length; }

    friend bool operator==(const LineBreak&, const LineBreak&) = default;
};

// Finds the line breaks of a text that comes in pieces: CR, LF, CR LF as one, U+0085, U+2028, U+2029.
// A CR LF may straddle two pieces. Pieces are UTF-16 or, where every code unit is below 256, single bytes.
// Cost: 64 code units at a time, some 0.2 ns each where breaks are rare.
class LineBreakScanner {
public:
    // Calls sink(LineBreak) for each break that is known to be complete by the end of the piece.
    template <class Unit, class Sink>
    void scan(std::span<const Unit> piece, Sink&& sink) {
        std::size_t at = 0;
        for (; at + unitsPerBlock <= piece.size(); at += unitsPerBlock)
            for (std::uint64_t mask = breakMask(piece.data() + at); mask != 0; mask &= mask - 1)
                accept(piece, at + static_cast<std::size_t>(std::countr_zero(mask)), sink);
        for (; at < piece.size(); ++at)
            if (isLineBreak(piece[at])) accept(piece, at, sink);
        m_position += static_cast<std::int64_t>(piece.size());
    }

    // The end of the text: a CR that still waits for an LF is a break by itself.
    template <class Sink>
    void finish(Sink&& sink) {
        if (m_lastReturn != noReturn) sink(LineBreak{m_lastReturn, 1});
        m_lastReturn = noReturn;
    }

    // The code units read so far.
    std::int64_t position() const { return m_position; }

    static constexpr bool isLineBreak(char16_t unit) {
        return unit == u'\n' || unit == u'\r' || unit == u'\u0085' || (unit & 0xFFFE) == 0x2028;
    }

private:
    static constexpr std::size_t unitsPerBlock = 64;
    static constexpr std::int64_t noReturn = -2; // before no location

    // Bit i tells whether unit i of the block is a break.
    static std::uint64_t breakMask(const char16_t* block);
    static std::uint64_t breakMask(const unsigned char* block);

    template <class Unit, class Sink>
    void accept(std::span<const Unit> piece, std::size_t at, Sink& sink) {
        const std::int64_t location = m_position + static_cast<std::int64_t>(at);
        if (piece[at] == u'\n' && m_lastReturn == location - 1) {
            sink(LineBreak{m_lastReturn, 2});
            m_lastReturn = noReturn;
            return;
        }
        finish(sink);
        if (piece[at] == u'\r')
            m_lastReturn = location;
        else
            sink(LineBreak{location, 1});
    }

    std::int64_t m_position = 0;
    std::int64_t m_lastReturn = noReturn; // a CR of which it is not known yet whether an LF follows
};

// The first line break of `text` that starts at or behind `location`, which must not lie inside a CR LF.
std::optional<LineBreak> rangeOfNextNewLine(std::u16string_view text, std::int64_t location);

} // namespace tessarine
