#include "platform/highlightr/helper/ScriptEngine.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

extern "C" const char quillet_script[];

namespace {

using OwnedString = std::unique_ptr<OpaqueJSString, decltype(&JSStringRelease)>;

OwnedString stringOf(std::u16string_view text) {
    return {JSStringCreateWithCharacters(reinterpret_cast<const JSChar*>(text.data()), text.size()),
            &JSStringRelease};
}

std::u16string textOf(JSContextRef context, JSValueRef value) {
    const OwnedString copy(JSValueToStringCopy(context, value, nullptr), &JSStringRelease);
    if (!copy) return {};
    const auto* characters = reinterpret_cast<const char16_t*>(JSStringGetCharactersPtr(copy.get()));
    return {characters, JSStringGetLength(copy.get())};
}

} // namespace

ScriptEngine::ScriptEngine()
    : m_context(JSGlobalContextCreate(nullptr)) {
    if (evaluate(quillet_script)) return;
    std::fputs("quillet-highlighter: the script does not load\n", stderr);
    std::exit(EXIT_FAILURE);
}

ScriptEngine::~ScriptEngine() {
    JSGlobalContextRelease(m_context);
}

JSValueRef ScriptEngine::evaluate(const char* script) const {
    const OwnedString source(JSStringCreateWithUTF8CString(script), &JSStringRelease);
    return JSEvaluateScript(m_context, source.get(), nullptr, nullptr, 1, nullptr);
}

std::vector<std::string> ScriptEngine::languages() const {
    const std::u16string joined = textOf(m_context, evaluate("hljs.listLanguages().join('\\n')"));
    std::vector<std::string> names(1);
    for (const char16_t unit : joined) {
        if (unit == u'\n')
            names.emplace_back();
        else
            names.back().push_back(static_cast<char>(unit)); // names are ASCII
    }
    return names;
}

std::u16string ScriptEngine::highlight(std::u16string_view code, std::optional<std::u16string_view> language,
                                       unsigned sampleSize) const {
    const JSValueRef function = evaluate("quilletHighlight");
    const JSValueRef arguments[] = {JSValueMakeString(m_context, stringOf(code).get()),
                                    language ? JSValueMakeString(m_context, stringOf(*language).get())
                                             : JSValueMakeNull(m_context),
                                    JSValueMakeNumber(m_context, sampleSize)};
    const JSValueRef answer = JSObjectCallAsFunction(m_context, JSValueToObject(m_context, function, nullptr),
                                                     nullptr, std::size(arguments), arguments, nullptr);
    return answer ? textOf(m_context, answer) : u"{}";
}
