#pragma once

namespace tessarine {

// What embedding code chooses for a document: PlainTextLanguageMode or TreeSitterLanguageMode. It holds no
// state of the document; InternalLanguageModeFactory makes what does.
class LanguageMode {
public:
    LanguageMode() = default;
    virtual ~LanguageMode() = default;

protected:
    LanguageMode(const LanguageMode&) = default;
    LanguageMode& operator=(const LanguageMode&) = default;
};

} // namespace tessarine
