#pragma once

#include <JavaScriptCore/JavaScript.h>

#include <optional>
#include <string>
#include <vector>

// The highlighter's script in an engine of its own. The script gets no object of its host. One thread.
class ScriptEngine {
public:
    // Loads the script; exits the process where that fails, since there is nothing else to do.
    ScriptEngine();
    ~ScriptEngine();
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;

    std::vector<std::string> languages() const;

    // The script's answer as JSON text; "{}" where the script failed. No language means automatic detection
    // on the first `sampleSize` code units.
    std::u16string highlight(std::u16string_view code, std::optional<std::u16string_view> language,
                             unsigned sampleSize) const;

private:
    JSValueRef evaluate(const char* script) const;

    JSGlobalContextRef m_context;
};
