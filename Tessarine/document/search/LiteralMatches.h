#pragma once

#include "Tessarine/document/search/LiteralPattern.h"
#include "Tessarine/document/search/MatchEngine.h"

#include <stop_token>

namespace tessarine {

// The matches of a literal pattern: a scan over the runs of the text where they lie.
class LiteralMatches final : public MatchEngine {
public:
    // Matches that start at `location` or behind.
    LiteralMatches(TextSnapshot text, LiteralPattern pattern, std::int64_t location, std::stop_token stop);

    Next next() override;

    // The next match will be one that starts at `location` or behind, whatever was found before.
    void seek(std::int64_t location) { m_location = location; }

private:
    // The first place from m_location on where a match may start, or the end of the run there.
    std::int64_t nextPlace();

    const TextSnapshot m_text;
    const LiteralPattern m_pattern;
    const UnitScan<std::uint8_t> m_narrowScan;
    const UnitScan<char16_t> m_wideScan;
    const std::stop_token m_stop;
    CharacterReader m_reader{m_text};
    TextRun m_run;
    std::int64_t m_location;
};

} // namespace tessarine
