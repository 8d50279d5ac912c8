#include "Tessarine/syntax/RegularExpression.h"

#include <limits>
#include <unordered_map>

namespace tessarine {

namespace {

constexpr std::int32_t longestSearch = 20;    // in ICU's units, of about a millisecond
constexpr std::int32_t mostStack = 4'000'000; // bytes

struct Cache {
    std::mutex mutex;
    std::unordered_map<std::string, std::weak_ptr<const RegularExpression>> expressions;
};

Cache& cache() {
    static Cache cache;
    return cache;
}

} // namespace

std::shared_ptr<const RegularExpression> RegularExpression::compiled(const std::string& pattern) {
    const std::scoped_lock lock(cache().mutex);
    auto& known = cache().expressions[pattern];
    auto expression = known.lock();
    if (!expression) known = expression = std::make_shared<const RegularExpression>(pattern);
    return expression;
}

RegularExpression::RegularExpression(std::string_view pattern) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError error{};
    const auto text = icu::UnicodeString::fromUTF8(
        icu::StringPiece(pattern.data(), static_cast<std::int32_t>(pattern.size())));
    m_pattern.reset(icu::RegexPattern::compile(text, error, status));
    if (U_FAILURE(status)) m_pattern.reset();
}

bool RegularExpression::isFoundIn(std::u16string_view text) const {
    if (!m_pattern || text.size() > std::numeric_limits<std::int32_t>::max()) return false;
    auto matcher = takeMatcher();
    if (!matcher) return false;
    const icu::UnicodeString input(false, text.data(), static_cast<std::int32_t>(text.size())); // no copy
    matcher->reset(input);
    UErrorCode status = U_ZERO_ERROR;
    const bool found = matcher->find(status) && U_SUCCESS(status);
    putBack(std::move(matcher));
    return found;
}

std::unique_ptr<icu::RegexMatcher> RegularExpression::takeMatcher() const {
    {
        const std::scoped_lock lock(m_mutex);
        if (!m_idleMatchers.empty()) {
            auto matcher = std::move(m_idleMatchers.back());
            m_idleMatchers.pop_back();
            return matcher;
        }
    }
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::RegexMatcher> matcher(m_pattern->matcher(status));
    if (matcher) matcher->setTimeLimit(longestSearch, status);
    if (matcher) matcher->setStackLimit(mostStack, status);
    return U_SUCCESS(status) ? std::move(matcher) : nullptr;
}

void RegularExpression::putBack(std::unique_ptr<icu::RegexMatcher> matcher) const {
    const std::scoped_lock lock(m_mutex);
    m_idleMatchers.push_back(std::move(matcher));
}

} // namespace tessarine
