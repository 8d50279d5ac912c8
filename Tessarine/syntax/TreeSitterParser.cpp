#include "Tessarine/syntax/TreeSitterParser.h"

#include "Tessarine/base/FatalError.h"
#include "Tessarine/syntax/Checked32.h"
#include "Tessarine/syntax/SnapshotTextInput.h"
#include "Tessarine/syntax/TreeSitterTextInput.h"

#include <vector>

namespace tessarine {

namespace {

// Asked by the parser after every hundred steps.
bool limitIsReached(TSParseState* state) {
    return static_cast<const ParseLimit*>(state->payload)->isReached();
}

} // namespace

TreeSitterParser::TreeSitterParser(TSInputEncoding encoding)
    : m_encoding(encoding)
    , m_pointer(ts_parser_new()) {
    if (!m_pointer) fatalError("Cannot create a parser.");
}

void TreeSitterParser::setLanguage(const TSLanguage* language) {
    m_language = language;
    ts_parser_set_language(m_pointer.get(), language);
}

TreeSitterTree::Reference TreeSitterParser::parse(const TreeSitterTree* oldTree, const ParseLimit& limit) {
    TreeSitterTextInput input([this](ByteCount byteIndex, TreeSitterTextPoint /*position*/) {
        const auto delegate = m_delegate.lock();
        return delegate ? delegate->parserBytesAt(byteIndex) : std::nullopt;
    });
    return parse(oldTree, input.rawValue(), limit);
}

TreeSitterTree::Reference TreeSitterParser::parse(const TextSnapshot& text, const TreeSitterTree* oldTree,
                                                  const ParseLimit& limit) {
    if (text.length() < 1) return nullptr;
    (void)checked32(ByteCount::ofCodeUnits(text.length()).value());
    SnapshotTextInput input(text);
    return parse(oldTree, input.rawValue(), limit);
}

TreeSitterTree::Reference TreeSitterParser::parse(const TreeSitterTree* oldTree, const TSInput& input,
                                                  const ParseLimit& limit) {
    TSParseOptions options{};
    if (limit.canBeReached())
        options = {.payload = const_cast<ParseLimit*>(&limit), .progress_callback = limitIsReached};
    TSTree* tree =
        ts_parser_parse_with_options(m_pointer.get(), oldTree ? oldTree->pointer() : nullptr, input, options);
    if (tree) return std::make_shared<TreeSitterTree>(tree);
    ts_parser_reset(m_pointer.get()); // else the next parse would go on with this one
    return nullptr;
}

bool TreeSitterParser::setIncludedRanges(std::span<const TreeSitterTextRange> ranges) {
    if (ranges.size() == 1)
        return ts_parser_set_included_ranges(m_pointer.get(), &ranges.front().rawValue(), 1);
    std::vector<TSRange> rawValues;
    for (const TreeSitterTextRange& range : ranges)
        rawValues.push_back(range.rawValue());
    return ts_parser_set_included_ranges(m_pointer.get(), rawValues.data(),
                                         checked32(static_cast<std::int64_t>(rawValues.size())));
}

} // namespace tessarine
