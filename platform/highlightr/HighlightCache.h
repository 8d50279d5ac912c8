#pragma once

#include "platform/highlightr/HighlightedCode.h"

#include <QtCore/QString>

#include <list>
#include <memory>
#include <mutex>
#include <optional>

namespace platform::highlight {

// What was asked of the highlighter.
struct Question {
    QString code;
    std::optional<QString> language;
    quint32 sampleSize = 0; // means nothing where there is a language

    bool operator==(const Question&) const = default;
};

// The last few answers, so that whoever asks again for what is on screen need not wait. Any thread. A look-up
// costs a comparison of the text where one of the same length is kept.
class HighlightCache {
public:
    // More would be states of texts that typing has left behind for good.
    static constexpr std::size_t mostEntries = 64;

    // Answers are kept up to so many bytes, their texts included.
    explicit HighlightCache(qsizetype capacity)
        : m_capacity(capacity) {}

    // Nothing where the answer is not known.
    std::shared_ptr<const HighlightedCode> find(const Question& question);
    void add(Question question, std::shared_ptr<const HighlightedCode> answer);

private:
    struct Entry {
        Question question;
        std::shared_ptr<const HighlightedCode> answer;
        qsizetype size = 0; // bytes
    };

    const qsizetype m_capacity;
    std::mutex m_mutex;         // guards what follows
    std::list<Entry> m_entries; // the one used last in front
    qsizetype m_size = 0;
};

} // namespace platform::highlight
