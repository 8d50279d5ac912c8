#include "Tessarine/syntax/TreeSitterTextPredicatesEvaluator.h"

#include "Tessarine/syntax/TextSubstring.h"

#include <algorithm>

namespace tessarine {

namespace {

bool equals(const TextSnapshot& text, const TextRange& range, std::u16string_view string) {
    if (range.length != static_cast<std::int64_t>(string.size())) return false;
    for (const TextRun& run : text.runs(range.location, range.length)) {
        const std::span other(string.data() + (run.location() - range.location),
                              static_cast<std::size_t>(run.size()));
        if (!run.visit([other](auto units) { return std::ranges::equal(units, other); })) return false;
    }
    return true;
}

} // namespace

bool TreeSitterTextPredicatesEvaluator::evaluate(const TreeSitterCapture& capture) const {
    return std::ranges::all_of(capture.textPredicates(), [this](const TreeSitterTextPredicate& predicate) {
        return std::visit([this](const auto& parameters) { return holds(parameters); }, predicate);
    });
}

bool TreeSitterTextPredicatesEvaluator::holds(const CaptureEqualsStringParameters& parameters) const {
    const TreeSitterCapture* capture = m_match.capture(parameters.captureIndex);
    if (!capture) return false;
    const auto range = unitsOf(m_text, capture->byteRange());
    if (!range) return !parameters.isPositive;
    return equals(m_text, *range, parameters.string) == parameters.isPositive;
}

bool TreeSitterTextPredicatesEvaluator::holds(const CaptureEqualsCaptureParameters& parameters) const {
    const TreeSitterCapture* lhs = m_match.capture(parameters.lhsCaptureIndex);
    const TreeSitterCapture* rhs = m_match.capture(parameters.rhsCaptureIndex);
    if (!lhs || !rhs) return false;
    const bool areEqual = substring(m_text, lhs->byteRange()) == substring(m_text, rhs->byteRange());
    return areEqual == parameters.isPositive;
}

bool TreeSitterTextPredicatesEvaluator::holds(const CaptureMatchesPatternParameters& parameters) const {
    const TreeSitterCapture* capture = m_match.capture(parameters.captureIndex);
    if (!capture) return false;
    const auto text = substring(m_text, capture->byteRange());
    return text && parameters.pattern->isFoundIn(*text) == parameters.isPositive;
}

bool TreeSitterTextPredicatesEvaluator::holds(const UnsupportedParameters& /*parameters*/) const {
    return false;
}

void appendValidCaptures(const TreeSitterQueryMatch& match, const TextSnapshot& text,
                         std::vector<TreeSitterCapture>& captures) {
    const TreeSitterTextPredicatesEvaluator evaluator(match, text);
    for (const TreeSitterCapture& capture : match.captures())
        if (capture.byteRange().length > 0 && evaluator.evaluate(capture)) captures.push_back(capture);
}

} // namespace tessarine
