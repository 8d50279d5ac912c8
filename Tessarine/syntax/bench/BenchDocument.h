#pragma once

#include "Tessarine/document/LineManager.h"
#include "Tessarine/syntax/TextProvider.h"
#include "Tessarine/syntax/TreeSitterInternalLanguageMode.h"
#include "Tessarine/syntax/tests/QueuedExecutor.h"
#include "Tessarine/syntax/tests/SampleLanguages.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace tessarine {

// A document with a language mode, whose edits are told step by step so that one can be timed.
class BenchDocument {
public:
    BenchDocument(const std::u16string& text, std::string_view language,
                  std::optional<std::chrono::steady_clock::duration> budget)
        : stringView(std::make_shared<StringView>(text))
        , lineManager(std::make_shared<LineManager>(stringView))
        , owner(std::make_shared<Owner>(stringView)) {
        lineManager->rebuild(text);
        TreeSitterLanguageMode languageMode(SampleLanguages::shared()->treeSitterLanguage(language),
                                            SampleLanguages::shared());
        languageMode.setReparseBudget(budget);
        mode = TreeSitterInternalLanguageMode::create(languageMode, stringView, lineManager, executor);
        mode->setDelegate(owner);
    }

    // A character typed or taken back; what the mode is told.
    LanguageModeTextChange changeText(std::int64_t at, bool isInsertion) {
        LanguageModeTextChange change;
        const std::int64_t removed = isInsertion ? 0 : 1;
        change.byteRange = {ByteCount::ofCodeUnits(at), ByteCount::ofCodeUnits(removed)};
        change.newByteCount = ByteCount::ofCodeUnits(1 - removed);
        change.startLinePosition = *lineManager->linePosition(at);
        change.oldEndLinePosition = *lineManager->linePosition(at + removed);
        stringView->replaceCharacters(at, removed, isInsertion ? u"x" : u"");
        lineManager->removeCharacters(at, removed);
        if (isInsertion) lineManager->insertText(u"x", at);
        change.newEndLinePosition = *lineManager->linePosition(at + 1 - removed);
        return change;
    }

    void settle() {
        while (mode->hasBackgroundParse() || executor->taskCount() > 0)
            executor->runNext();
    }

    const std::shared_ptr<StringView> stringView;
    const std::shared_ptr<LineManager> lineManager;
    const std::shared_ptr<QueuedExecutor> executor = std::make_shared<QueuedExecutor>();
    std::shared_ptr<TreeSitterInternalLanguageMode> mode;

private:
    struct Owner : TreeSitterLanguageModeDelegate {
        explicit Owner(std::shared_ptr<StringView> ownedText)
            : text(std::move(ownedText)) {}

        std::optional<TreeSitterTextProviderResult> treeSitterLanguageMode(ByteCount byteIndex) override {
            return textProviderResult(text->snapshot(), byteIndex);
        }

        const std::shared_ptr<StringView> text;
    };

    const std::shared_ptr<Owner> owner;
};

} // namespace tessarine
