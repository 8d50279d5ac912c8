#include "Tessarine/syntax/TreeSitterQuery.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/syntax/Checked32.h"

#include <algorithm>
#include <ranges>
#include <unicode/brkiter.h>

namespace tessarine {

namespace {

std::int64_t userPerceivedCharacters(std::string_view source) {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (std::ranges::all_of(source, isAscii)) return static_cast<std::int64_t>(source.size());
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> boundaries(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status)) fatalError("Cannot iterate over characters.");
    boundaries->setText(icu::UnicodeString::fromUTF8(
        icu::StringPiece(source.data(), static_cast<std::int32_t>(source.size()))));
    std::int64_t count = 0;
    while (boundaries->next() != icu::BreakIterator::DONE)
        ++count;
    return count;
}

TreeSitterQueryError errorOf(TSQueryError type, std::uint32_t offset) {
    using Kind = TreeSitterQueryError::Kind;
    switch (type) {
    case TSQueryErrorSyntax:
        return {Kind::syntax, offset};
    case TSQueryErrorNodeType:
        return {Kind::nodeType, offset};
    case TSQueryErrorField:
        return {Kind::field, offset};
    case TSQueryErrorCapture:
        return {Kind::capture, offset};
    case TSQueryErrorStructure:
        return {Kind::structure, offset};
    default:
        return {Kind::unknown, 0};
    }
}

std::int32_t componentsOf(std::string_view name) {
    std::int32_t count = 0;
    for (std::size_t i = 0; i < name.size(); ++i)
        count += name[i] != '.' && (i == 0 || name[i - 1] == '.') ? 1 : 0;
    return count;
}

} // namespace

std::expected<std::shared_ptr<const TreeSitterQuery>, TreeSitterQueryError>
TreeSitterQuery::create(std::string_view source, const TSLanguage* language) {
    std::uint32_t offset = 0;
    TSQueryError type = TSQueryErrorNone;
    const std::string terminated(source);
    TSQuery* pointer = ts_query_new(language, terminated.c_str(), checked32(userPerceivedCharacters(source)),
                                    &offset, &type);
    if (!pointer) return std::unexpected(errorOf(type, offset));
    return std::shared_ptr<const TreeSitterQuery>(new TreeSitterQuery(pointer, language)); // NOLINT: private
}

TreeSitterQuery::TreeSitterQuery(TSQuery* pointer, const TSLanguage* language)
    : m_pointer(pointer)
    , m_language(language)
    , m_meanings(std::make_unique<LazyMeaning[]>(ts_query_pattern_count(pointer))) {
    for (std::uint32_t i = 0; i < ts_query_capture_count(pointer); ++i)
        m_nameComponentCounts.push_back(componentsOf(captureName(i)));
}

// Every pass reads the first predicate anew while the index counts on, so that a pattern yields its first
// predicate as often as passes fit into its steps and its later ones never: so the queries are meant.
std::vector<TreeSitterPredicate> TreeSitterQuery::predicates(std::uint32_t patternIndex) const {
    std::uint32_t length = 0;
    const TSQueryPredicateStep* steps = ts_query_predicates_for_pattern(pointer(), patternIndex, &length);
    std::vector<TreeSitterPredicate> predicates;
    if (!steps) return predicates;
    std::uint32_t stepCount = 0;
    for (std::uint32_t index = 0; index < length; index += stepCount + 2)
        predicates.push_back(firstPredicate(steps, stepCount));
    return predicates;
}

TreeSitterPredicate TreeSitterQuery::firstPredicate(const TSQueryPredicateStep* steps,
                                                    std::uint32_t& stepCount) const {
    TreeSitterPredicate predicate{.name = stringValue(steps->value_id), .steps = {}};
    const TSQueryPredicateStep* step = steps + 1;
    for (; step->type != TSQueryPredicateStepTypeDone; ++step) {
        if (step->type == TSQueryPredicateStepTypeCapture)
            predicate.steps.emplace_back(TreeSitterPredicate::Capture{step->value_id});
        else if (step->type == TSQueryPredicateStepTypeString)
            predicate.steps.emplace_back(stringValue(step->value_id));
    }
    stepCount = static_cast<std::uint32_t>(step - steps - 1);
    return predicate;
}

std::string TreeSitterQuery::stringValue(std::uint32_t id) const {
    std::uint32_t length = 0;
    const char* value = ts_query_string_value_for_id(pointer(), id, &length);
    if (!value) fatalError("A query has no string of that id.");
    return {value, length};
}

const TreeSitterPatternMeaning& TreeSitterQuery::meaning(std::uint32_t patternIndex) const {
    LazyMeaning& lazy = m_meanings[patternIndex];
    std::call_once(lazy.isMapped,
                   [&] { lazy.meaning = TreeSitterPredicateMapper::map(predicates(patternIndex)); });
    return lazy.meaning;
}

std::string_view TreeSitterQuery::captureName(std::uint32_t captureIndex) const {
    std::uint32_t length = 0;
    const char* name = nullptr;
    if (captureIndex < ts_query_capture_count(pointer()))
        name = ts_query_capture_name_for_id(pointer(), captureIndex, &length);
    if (!name) fatalError("A query has no capture of that index.");
    return {name, length};
}

} // namespace tessarine
