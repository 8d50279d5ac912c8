#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unicode/regex.h>
#include <vector>

namespace tessarine {

// A regular expression in ICU's dialect that is searched for in many texts. Thread: any number at once.
//
// A search that takes too many steps or too much memory, as some patterns do on some texts, ends as not
// found; so does every search for a pattern that is no regular expression.
class RegularExpression {
public:
    // The one for that pattern text (UTF-8), compiled once as long as anybody has it.
    static std::shared_ptr<const RegularExpression> compiled(const std::string& pattern);

    explicit RegularExpression(std::string_view pattern);

    bool isFoundIn(std::u16string_view text) const;

private:
    std::unique_ptr<icu::RegexMatcher> takeMatcher() const;
    void putBack(std::unique_ptr<icu::RegexMatcher> matcher) const;

    std::unique_ptr<icu::RegexPattern> m_pattern; // null if it is none

    mutable std::mutex m_mutex; // guards what follows
    mutable std::vector<std::unique_ptr<icu::RegexMatcher>> m_idleMatchers;
};

} // namespace tessarine
