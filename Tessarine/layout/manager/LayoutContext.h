#pragma once

#include "Tessarine/base/EdgeInsets.h"
#include "Tessarine/base/Rect.h"
#include "Tessarine/editing/EditedDocument.h"
#include "Tessarine/layout/InvisibleCharacterConfiguration.h"
#include "Tessarine/layout/LineBreakMode.h"
#include "Tessarine/layout/ScrollView.h"
#include "Tessarine/layout/manager/LineSelectionDisplayType.h"
#include "Tessarine/theme/DefaultTheme.h"

#include <memory>
#include <optional>

namespace tessarine {

// What is laid out, and how: one for all parts of the layout, which only read it. In points. No pointer is
// null but for the scroll view, which may go.
struct LayoutContext {
    EditedDocument document = EditedDocument::empty();
    std::shared_ptr<const Theme> theme = std::make_shared<DefaultTheme>();
    std::weak_ptr<ScrollView> scrollView;

    // The part of the content on screen.
    double scrollViewWidth = 0;
    Rect viewport;

    EdgeInsets textContainerInset;
    bool isLineWrappingEnabled = true;
    LineBreakMode lineBreakMode = LineBreakMode::byWordWrapping;
    double lineHeightMultiplier = 1;
    double kern = 0;
    double tabWidth = 10;
    std::shared_ptr<const InvisibleCharacterConfiguration> invisibleCharacterConfiguration;

    bool showLineNumbers = false;
    double gutterLeadingPadding = 3;
    double gutterTrailingPadding = 3;

    // The selection never reaches outside of the text as far as it is asked for here.
    bool isEditing = false;
    LineSelectionDisplayType lineSelectionDisplayType = LineSelectionDisplayType::disabled;
    std::optional<TextRange> selectedRange;
    std::optional<TextRange> markedRange;
};

} // namespace tessarine
