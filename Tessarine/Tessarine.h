// What a program needs of the engine to open, colour, search and edit a text, on a toolkit of its own or
// none. On Qt: TessarineView.h.
#pragma once

#include "Tessarine/document/TextDecoder.h"
#include "Tessarine/document/TextEncoder.h"
#include "Tessarine/document/search/MatchFinder.h"
#include "Tessarine/document/search/ReplaceAll.h"
#include "Tessarine/document/search/SearchController.h"
#include "Tessarine/editing/TextInputView.h"
#include "Tessarine/editing/TextViewState.h"
#include "Tessarine/syntax/PlainTextLanguageMode.h"
#include "Tessarine/syntax/TreeSitterLanguageMode.h"
#include "Tessarine/textview/TextView.h"
#include "Tessarine/textview/TextViewDelegate.h"
#include "Tessarine/theme/DefaultTheme.h"
