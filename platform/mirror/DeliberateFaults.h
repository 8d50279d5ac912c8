#pragma once

namespace platform::faults {

// Rules of the mirror that a test breaks in a copy of this library, to see that its simulation notices.

#ifdef MIRROR_BREAK_DELETIONS
constexpr bool deletionAlwaysWins = true;
#else
constexpr bool deletionAlwaysWins = false;
#endif

#ifdef MIRROR_BREAK_TEXTS
constexpr bool laterTextWins = true;
#else
constexpr bool laterTextWins = false;
#endif

#ifdef MIRROR_BREAK_CURSOR
constexpr bool cursorGoesAhead = true;
#else
constexpr bool cursorGoesAhead = false;
#endif

#ifdef MIRROR_BREAK_OUTBOX
constexpr bool outboxIsClearedEarly = true;
#else
constexpr bool outboxIsClearedEarly = false;
#endif

} // namespace platform::faults
