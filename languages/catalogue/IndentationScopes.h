#pragma once

#include "Tessarine/syntax/TreeSitterIndentationScopes.h"

// Which nodes indent, for the languages that know.
namespace tessarine::languages::scopes {

const TreeSitterIndentationScopes* bash();
const TreeSitterIndentationScopes* c();
const TreeSitterIndentationScopes* css();
const TreeSitterIndentationScopes* html();
const TreeSitterIndentationScopes* javaScriptJSX();
const TreeSitterIndentationScopes* json();
const TreeSitterIndentationScopes* php();
const TreeSitterIndentationScopes* python();
const TreeSitterIndentationScopes* ruby();
const TreeSitterIndentationScopes* rust();
const TreeSitterIndentationScopes* swift();

} // namespace tessarine::languages::scopes
