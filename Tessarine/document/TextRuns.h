#pragma once

#include "Tessarine/document/TextRun.h"

#include <cstdint>
#include <iterator>

namespace tessarine {

class TextSnapshot;

// The contiguous runs of a range, in order, for `for (const TextRun& run : text.runs(location, length))`.
// Nothing is copied; O(log n) a run. Borrows the text, as its runs do.
class TextRuns {
public:
    class Iterator {
    public:
        using value_type = TextRun;
        using difference_type = std::ptrdiff_t;

        Iterator(const TextSnapshot& text, std::int64_t location, std::int64_t limit)
            : m_text(&text)
            , m_limit(limit) {
            seek(location);
        }

        const TextRun& operator*() const { return m_run; }

        const TextRun* operator->() const { return &m_run; }

        Iterator& operator++() {
            seek(m_run.limit());
            return *this;
        }

        void operator++(int) { ++*this; }

        friend bool operator==(const Iterator& iterator, std::default_sentinel_t) {
            return iterator.m_run.size() == 0;
        }

    private:
        void seek(std::int64_t location);

        const TextSnapshot* m_text;
        std::int64_t m_limit;
        TextRun m_run; // empty at the end
    };

    TextRuns(const TextSnapshot& text, std::int64_t location, std::int64_t limit)
        : m_text(&text)
        , m_location(location)
        , m_limit(limit) {}

    Iterator begin() const { return {*m_text, m_location, m_limit}; }

    std::default_sentinel_t end() const { return {}; }

private:
    const TextSnapshot* m_text;
    std::int64_t m_location;
    std::int64_t m_limit;
};

} // namespace tessarine
