#pragma once

#include <QtCore/QString>

#include <optional>
#include <vector>

namespace platform {

// A text's syntax, whatever the theme: runs of scopes in UTF-16 code units. Runs are sorted, disjoint and
// inside the text.
struct HighlightedCode {
    struct Run {
        qsizetype start = 0;
        qsizetype limit = 0;
        std::size_t path = 0; // index into paths
    };

    QString language; // as highlighted or detected; empty where the language is unknown
    // The scopes around a run, from outside in, such as {"meta", "string"}; "language:" and a name where
    // another language begins.
    std::vector<std::vector<QString>> paths;
    std::vector<Run> runs;

    // Reads the helper's answer to a text of `length` code units; nothing where it breaks any rule.
    static std::optional<HighlightedCode> parse(const QString& answer, qsizetype length);
};

} // namespace platform
