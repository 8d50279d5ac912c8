#pragma once

#include "Tessarine/document/LineEnding.h"
#include "Tessarine/document/LineManager.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/document/TextStore.h"
#include "Tessarine/document/search/BatchReplaceSet.h"
#include "Tessarine/editing/TextEditResult.h"

#include <string>
#include <string_view>

namespace tessarine {

// Edits text and lines of a document and nothing else. Made and dropped within one call.
class TextEditHelper {
public:
    TextEditHelper(StringView& stringView, LineManager& lineManager, LineEnding lineEndings)
        : m_stringView(stringView)
        , m_lineManager(lineManager)
        , m_lineEndings(lineEndings) {}

    // The lines are those of the new text afterwards, whatever line breaks the edit makes, joins or tears
    // apart. The range must lie in the text, else the program stops. `text` must not be of the string view.
    TextEditResult replaceCharacters(const TextRange& range, std::u16string_view text);

    // The whole text with all replacements made at once; the document stays as it is. Ranges that do not lie
    // in the text are left out.
    TextStore applyBatchReplacements(const BatchReplaceSet& replacements) const;

    // The text with each CR LF, CR and LF as the document writes its line breaks.
    std::u16string withLineEndings(std::u16string_view text) const;

private:
    LinePosition linePosition(std::int64_t location) const;
    bool bringsLineFeedBehindReturn(const TextRange& range, std::u16string_view text) const;
    LineChangeSet replaceInLines(const TextRange& range, std::u16string_view text);

    StringView& m_stringView;
    LineManager& m_lineManager;
    const LineEnding m_lineEndings;
};

} // namespace tessarine
