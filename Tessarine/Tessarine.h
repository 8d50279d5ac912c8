// What a program needs of the engine to keep, colour, search and edit a text, without a toolkit.
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
#include "Tessarine/theme/DefaultTheme.h"
