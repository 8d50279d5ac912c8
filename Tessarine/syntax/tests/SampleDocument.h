#pragma once

#include "Tessarine/document/LineManager.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/syntax/TextProvider.h"
#include "Tessarine/syntax/TreeSitterInternalLanguageMode.h"
#include "Tessarine/syntax/tests/QueuedExecutor.h"
#include "Tessarine/syntax/tests/SampleLanguages.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

// A document with a language mode, edited as the engine does it.
class SampleDocument {
public:
    using Budget = std::optional<std::chrono::steady_clock::duration>;

    SampleDocument(std::u16string_view text, std::string_view language, Budget budget = std::nullopt)
        : SampleDocument(text, SampleLanguages::shared()->treeSitterLanguage(language),
                         SampleLanguages::shared(), budget) {}

    SampleDocument(std::u16string_view text, std::shared_ptr<const TreeSitterLanguage> language,
                   std::shared_ptr<const TreeSitterLanguageProvider> provider, Budget budget = std::nullopt)
        : stringView(std::make_shared<StringView>(text))
        , lineManager(std::make_shared<LineManager>(stringView))
        , owner(std::make_shared<Owner>())
        , executor(std::make_shared<QueuedExecutor>()) {
        owner->document = this;
        lineManager->rebuild(text);
        TreeSitterLanguageMode languageMode(std::move(language), std::move(provider));
        languageMode.setReparseBudget(budget);
        mode = TreeSitterInternalLanguageMode::create(languageMode, stringView, lineManager, executor);
        mode->setDelegate(owner);
    }

    void parse() { mode->parse(stringView->snapshot()); }

    // Gives the rows that the language mode reports.
    std::vector<std::int64_t> replace(std::int64_t location, std::int64_t length, std::u16string_view text) {
        LanguageModeTextChange change;
        change.byteRange = {ByteCount::ofCodeUnits(location), ByteCount::ofCodeUnits(length)};
        change.newByteCount = ByteCount::of(text);
        change.startLinePosition = lineManager->linePosition(location).value();
        change.oldEndLinePosition = lineManager->linePosition(location + length).value();
        stringView->replaceCharacters(location, length, text);
        lineManager->removeCharacters(location, length);
        if (!text.empty()) lineManager->insertText(text, location);
        change.newEndLinePosition =
            lineManager->linePosition(location + static_cast<std::int64_t>(text.size())).value();
        return rowsOf(mode->textDidChange(change));
    }

    // At the first occurrence of `place`, in front of it.
    std::vector<std::int64_t> insertBefore(std::u16string_view place, std::u16string_view text) {
        return replace(static_cast<std::int64_t>(stringView->string().find(place)), 0, text);
    }

    // Runs what the background hands back until nothing goes on there.
    void settle() {
        while (mode->hasBackgroundParse() || executor->taskCount() > 0)
            executor->runNext();
    }

    // All that the mode knows: layers with ranges, languages and trees, and the captures in two kinds of
    // ranges.
    std::string description() const;

    // The same of a mode that has just parsed the text.
    std::string freshDescription() const;

    // Whether the text has errors on which a fresh parse of the root goes on in another way than the parser
    // does incrementally. That is the library's own: it looks for a way on from where it stands.
    bool isBroken() const;

    ByteCount freshRootEnd() const { return freshLayers().root()->tree()->rootNode().endByte(); }

    std::vector<std::int64_t> reparsedRows() const { return owner->rows; }

    const std::shared_ptr<StringView> stringView;
    const std::shared_ptr<LineManager> lineManager;
    std::shared_ptr<TreeSitterInternalLanguageMode> mode;

    static std::vector<std::int64_t> rowsOf(const LineChangeSet& changes);

private:
    struct Owner : TreeSitterLanguageModeDelegate {
        std::optional<TreeSitterTextProviderResult> treeSitterLanguageMode(ByteCount byteIndex) override {
            return textProviderResult(document->stringView->snapshot(), byteIndex);
        }

        void treeSitterLanguageModeDidReparse(const LineChangeSet& changes) override {
            rows = rowsOf(changes);
        }

        SampleDocument* document = nullptr;
        std::vector<std::int64_t> rows;
    };

    TreeSitterLanguageLayers freshLayers() const;

    const std::shared_ptr<Owner> owner;

public:
    const std::shared_ptr<QueuedExecutor> executor;
};

} // namespace tessarine
