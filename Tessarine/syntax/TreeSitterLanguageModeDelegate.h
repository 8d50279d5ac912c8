#pragma once

#include "Tessarine/document/ByteCount.h"
#include "Tessarine/document/LineChangeSet.h"
#include "Tessarine/syntax/TreeSitterTextProviderResult.h"

#include <optional>

namespace tessarine {

// The owner of a document, as its language mode sees it. Main thread.
class TreeSitterLanguageModeDelegate {
public:
    TreeSitterLanguageModeDelegate() = default;
    TreeSitterLanguageModeDelegate(const TreeSitterLanguageModeDelegate&) = delete;
    TreeSitterLanguageModeDelegate& operator=(const TreeSitterLanguageModeDelegate&) = delete;
    virtual ~TreeSitterLanguageModeDelegate() = default;

    // At most 4096 bytes of the text from there on; nothing at and beyond its end. textProviderResult() makes
    // it of a StringView.
    virtual std::optional<TreeSitterTextProviderResult> treeSitterLanguageMode(ByteCount byteIndex) = 0;

    // A parse that went on in the background is done, and gave these lines another syntax.
    virtual void treeSitterLanguageModeDidReparse(const LineChangeSet& /*changes*/) {}
};

} // namespace tessarine
