#include "Tessarine/editing/tests/EditScript.h"

#include "Tessarine/syntax/PreferredUtf16Encoding.h"
#include "Tessarine/syntax/TreeSitterLayerParser.h"
#include "Tessarine/syntax/tests/TreeText.h"

namespace tessarine {

namespace {

constexpr std::array<std::u16string_view, 4> pairComponents{u"(", u")", u"\"", u"{"};

} // namespace

EditScript::EditScript(Numbers numbers, Pieces pieces, const TreeSitterLanguageMode* languageMode)
    : m_numbers(std::move(numbers))
    , m_pieces(pieces)
    , m_edited(someText(8), languageMode, std::make_shared<QueuedExecutor>()) {
    m_edited.setPairs({{u"(", u")"}, {u"\"", u"\""}, {u"{", u"}\n"}});
    view().characterPairs().setTrailingComponentDeletionMode(
        CharacterPairTrailingComponentDeletionMode::immediatelyFollowingLeadingComponent);
    choose();
}

std::u16string EditScript::someText(std::int64_t mostPieces) {
    std::u16string text;
    for (std::int64_t count = m_numbers(mostPieces + 1); count > 0; --count)
        text += m_pieces[static_cast<std::size_t>(m_numbers(std::ssize(m_pieces)))];
    return text;
}

TextRange EditScript::someRange(std::int64_t mostUnits) {
    const std::int64_t location = m_numbers(length() + 1);
    return {location, m_numbers(std::min(mostUnits, length() - location) + 1)};
}

// Neither return nor part of a pair.
bool EditScript::isPlain(std::u16string_view text) const {
    return !lineEndingFromSymbol(text) && std::ranges::find(pairComponents, text) == pairComponents.end() &&
           normalized(text) != normalized(u"}\n");
}

std::u16string EditScript::normalized(std::u16string_view text) const {
    std::u16string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text.substr(at, 2) == u"\r\n") continue;
        const bool isBreak = text[at] == u'\r' || text[at] == u'\n';
        result += isBreak ? symbol(m_lineEndings) : text.substr(at, 1);
    }
    return result;
}

EditScript::Fault EditScript::step() {
    Fault fault;
    switch (m_numbers(16)) {
    case 0:
        fault = takeBack(m_past, m_future, &EditedText::undo);
        break;
    case 1:
        fault = takeBack(m_future, m_past, &EditedText::redo);
        break;
    case 2:
        m_edited.clock->advance(0.25 * static_cast<double>(m_numbers(8)));
        break;
    case 3:
    case 4:
        fault = backspace();
        break;
    case 5:
        edit(Grouping::joins, [this] { m_numbers(2) == 0 ? view().shiftLeft() : view().shiftRight(); });
        break;
    case 6:
        edit(Grouping::joins, [this] { view().insertText(symbol(allLineEndings[m_numbers(3)])); });
        break;
    case 7:
        m_numbers(4) > 0 ? replaceBatch() : exchange();
        break;
    case 8:
    case 9:
        fault = replace();
        break;
    case 10:
        choose();
        break;
    case 11:
        view().setMarkedRange(someRange(3));
        break;
    case 12: {
        const TextRange range = someRange(12);
        view().setSelectedRange(range);
        break;
    }
    default:
        fault = type();
        break;
    }
    return fault ? fault : check();
}

// How the document is written from here on.
void EditScript::choose() {
    m_lineEndings = allLineEndings[static_cast<std::size_t>(m_numbers(3))];
    view().setLineEndings(m_lineEndings);
    view().setIndentStrategy(m_numbers(2) == 0 ? IndentStrategy::tab(4)
                                               : IndentStrategy::space(1 + m_numbers(4)));
    if (!view().selectedRange()) m_edited.select(m_numbers(length() + 1));
}

// Whatever has told of a change has registered an undo. True if that began a step.
template <class Edit>
bool EditScript::edit(Grouping grouping, Edit work) {
    const bool begins = grouping == Grouping::isStepOfItsOwn || !view().undoManager().hasOpenGroup();
    State before = state();
    m_edited.calls.clear();
    work();
    if (std::ranges::find(m_edited.calls, "changed") == m_edited.calls.end()) return false;
    m_future.clear();
    if (begins) m_past.push_back(std::move(before));
    return begins;
}

EditScript::Fault EditScript::type() {
    const std::u16string text = someText(2);
    std::u16string expected = m_edited.text();
    const TextRange range = view().inText(view().markedRange().value_or(*view().selectedRange()));
    edit(Grouping::joins, [&] { view().insertText(text); });
    if (!isPlain(text)) return std::nullopt;
    expected.replace(static_cast<std::size_t>(range.location), static_cast<std::size_t>(range.length),
                     normalized(text));
    return expectText(expected);
}

EditScript::Fault EditScript::replace() {
    const TextRange range = someRange(m_numbers(10) == 0 ? 1000 : 6);
    const std::u16string text = someText(3);
    std::u16string expected = m_edited.text();
    edit(Grouping::joins, [&] { view().replace(range, text); });
    if (!isPlain(normalized(text))) return std::nullopt;
    expected.replace(static_cast<std::size_t>(range.location), static_cast<std::size_t>(range.length),
                     normalized(text));
    return expectText(expected);
}

// What goes is in one piece and holds what was to go.
EditScript::Fault EditScript::backspace() {
    view().setMarkedRange(std::nullopt);
    TextRange range = *view().selectedRange();
    if (range.length == 0 && range.location > 0) range = {range.location - 1, 1};
    view().setSelectedRange(range);
    const std::u16string before = m_edited.text();
    const auto grouping = range.length >= 2 ? Grouping::isStepOfItsOwn : Grouping::joins;
    const bool begins = edit(grouping, [this] { view().deleteBackward(); });
    const std::int64_t removed = std::ssize(before) - length();
    if (begins && removed == 1) m_past.back().selection = TextRange{range.limit(), 0};
    const std::int64_t start = view().selectedRange()->location;
    if (range.length > 0 &&
        (removed < range.length || start > range.location || start + removed < range.limit()))
        return "a deletion leaves a part";
    std::u16string expected = before;
    if (removed > 0) expected.erase(static_cast<std::size_t>(start), static_cast<std::size_t>(removed));
    return expectText(expected);
}

void EditScript::exchange() {
    const std::u16string text = someText(8);
    edit(Grouping::isStepOfItsOwn, [&] { view().setStringWithUndoAction(TextStore(text)); });
}

void EditScript::replaceBatch() {
    BatchReplaceSet set;
    for (std::int64_t count = m_numbers(4); count > 0; --count)
        set.replacements.push_back({someRange(4), someText(1)});
    edit(Grouping::isStepOfItsOwn, [&] { view().replaceText(set); });
}

EditScript::Fault EditScript::takeBack(std::vector<State>& from, std::vector<State>& to,
                                       void (EditedText::*work)()) {
    const State before = state();
    const State expected = from.empty() ? before : from.back();
    (m_edited.*work)();
    if (!from.empty()) {
        from.pop_back();
        to.push_back(before);
    }
    if (state().text != expected.text) return "an undo or a redo gives another text";
    if (state() != expected) return "an undo or a redo gives another selection";
    return std::nullopt;
}

EditScript::Fault EditScript::finish() {
    for (const bool undoes : {true, false, true}) {
        std::vector<State>& from = undoes ? m_past : m_future;
        std::vector<State>& to = undoes ? m_future : m_past;
        while (!from.empty()) {
            if (auto fault = takeBack(from, to, undoes ? &EditedText::undo : &EditedText::redo)) return fault;
            if (auto fault = check()) return fault;
        }
    }
    return std::nullopt;
}

EditScript::Fault EditScript::expectText(std::u16string_view text) const {
    if (m_edited.text() != text) return "the text differs";
    return std::nullopt;
}

EditScript::Fault EditScript::check() {
    if (auto fault = lineFault(view().document())) return fault;
    const TextRange selection = *view().selectedRange();
    if (view().inText(selection) != selection) return "the selection lies outside of the text";
    if (view().undoManager().canUndo() != !m_past.empty()) return "what can be undone differs";
    if (view().undoManager().canRedo() != !m_future.empty()) return "what can be redone differs";
    return compareTrees();
}

// With errors the library may go on in another way than from nothing.
EditScript::Fault EditScript::compareTrees() {
    const auto mode =
        std::dynamic_pointer_cast<TreeSitterInternalLanguageMode>(view().document().languageMode);
    if (!mode) return std::nullopt;
    TreeSitterParser parser(preferredUTF16Encoding);
    const TextSnapshot text = view().document().stringView->snapshot();
    const ParseLimit unlimited;
    TreeSitterLayerParser layers(parser, text, mode->languageProvider().get(), unlimited);
    const auto fresh = layers.parse(mode->layers().root()->language())->tree();
    const auto tree = mode->layers().root()->tree();
    if (text.length() == 0) return std::nullopt; // there may be a tree of nothing
    if (!fresh || !tree) return !fresh == !tree ? std::nullopt : Fault("there is no tree");
    if (ts_node_has_error(fresh->rootNode().rawValue())) return std::nullopt;
    ++m_comparedTrees;
    if (treeText(*fresh) != treeText(*tree)) return "the tree differs";
    return std::nullopt;
}

} // namespace tessarine
