#include "Tessarine/syntax/TreeSitterPredicateMapper.h"

#include "Tessarine/base/FatalError.h"

#include <unicode/unistr.h>

namespace tessarine {

namespace {

using Capture = TreeSitterPredicate::Capture;

std::u16string utf16(const std::string& text) {
    const auto converted = icu::UnicodeString::fromUTF8(text);
    return {converted.getBuffer(), static_cast<std::size_t>(converted.length())};
}

void mapSet(const TreeSitterPredicate& predicate, TreeSitterPatternMeaning& meaning) {
    if (predicate.steps.size() != 2) fatalError("Set predicate must contain exactly two steps.");
    const auto* key = std::get_if<std::string>(&predicate.steps[0]);
    const auto* value = std::get_if<std::string>(&predicate.steps[1]);
    if (!key || !value) fatalError("Set predicate must contain exactly two string steps.");
    meaning.properties[*key] = *value;
}

TreeSitterTextPredicate mapEquals(const TreeSitterPredicate& predicate, bool isPositive) {
    if (predicate.steps.size() != 2) fatalError("eq? and not-eq? predicates must contain exactly two teps.");
    const auto* capture = std::get_if<Capture>(&predicate.steps[0]);
    if (!capture) fatalError("Predicate contains invalid combination of steps.");
    if (const auto* string = std::get_if<std::string>(&predicate.steps[1]))
        return CaptureEqualsStringParameters{capture->index, utf16(*string), isPositive};
    return CaptureEqualsCaptureParameters{capture->index, std::get<Capture>(predicate.steps[1]).index,
                                          isPositive};
}

TreeSitterTextPredicate mapMatch(const TreeSitterPredicate& predicate, bool isPositive) {
    if (predicate.steps.size() != 2)
        fatalError("match? and not-match? predicates must contain exactly stwo teps.");
    const auto* capture = std::get_if<Capture>(&predicate.steps[0]);
    const auto* pattern = std::get_if<std::string>(&predicate.steps[1]);
    if (!capture || !pattern) fatalError("Predicate contains invalid combination of steps.");
    return CaptureMatchesPatternParameters{capture->index, RegularExpression::compiled(*pattern), isPositive};
}

} // namespace

TreeSitterPatternMeaning TreeSitterPredicateMapper::map(std::span<const TreeSitterPredicate> predicates) {
    TreeSitterPatternMeaning meaning;
    for (const TreeSitterPredicate& predicate : predicates) {
        const bool isPositive = !predicate.name.starts_with("not-");
        if (predicate.name == "set!")
            mapSet(predicate, meaning);
        else if (predicate.name == "eq?" || predicate.name == "not-eq?")
            meaning.textPredicates.push_back(mapEquals(predicate, isPositive));
        else if (predicate.name == "match?" || predicate.name == "not-match?")
            meaning.textPredicates.push_back(mapMatch(predicate, isPositive));
        else
            meaning.textPredicates.emplace_back(UnsupportedParameters{predicate.name});
    }
    return meaning;
}

} // namespace tessarine
