// grammar_errors GRAMMAR FILE...: how much of each file a grammar does not understand.
//
// A line for each file that has any of it: the share of its bytes in nodes that are errors, and where the
// first three begin. A missing token counts as one byte. The last line tells how many files have less than
// one percent.
#include "languages/grammars/Grammars.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <tree_sitter/api.h>
#include <vector>

namespace {

struct Errors {
    std::uint64_t bytes = 0;
    std::vector<TSPoint> places;
};

void add(Errors& errors, TSNode node) {
    const std::uint32_t length = ts_node_end_byte(node) - ts_node_start_byte(node);
    errors.bytes += std::max(length, 1U);
    errors.places.push_back(ts_node_start_point(node));
}

// Depth first, without a look into what has no errors.
Errors errorsIn(TSNode root) {
    Errors errors;
    std::vector<TSNode> open{root};
    while (!open.empty()) {
        const TSNode node = open.back();
        open.pop_back();
        if (ts_node_is_error(node) || ts_node_is_missing(node)) {
            add(errors, node);
            continue;
        }
        if (!ts_node_has_error(node)) continue;
        for (std::uint32_t i = ts_node_child_count(node); i > 0; --i)
            open.push_back(ts_node_child(node, i - 1));
    }
    return errors;
}

std::string contentOf(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void print(const char* path, double percent, const Errors& errors) {
    std::cout << percent << " % " << path;
    for (std::size_t i = 0; i < errors.places.size() && i < 3; ++i)
        std::cout << ' ' << errors.places[i].row + 1 << ':' << errors.places[i].column + 1;
    std::cout << '\n';
}

class Measure {
public:
    explicit Measure(const TSLanguage* language) { ts_parser_set_language(m_parser.get(), language); }

    // The share of a file's bytes that are in errors, in percent; printed if there is any.
    double of(const char* path) const {
        const std::string text = contentOf(path);
        if (text.empty()) return 0;
        const std::unique_ptr<TSTree, decltype(&ts_tree_delete)> tree(
            ts_parser_parse_string(m_parser.get(), nullptr, text.data(),
                                   static_cast<std::uint32_t>(text.size())),
            ts_tree_delete);
        const Errors errors = errorsIn(ts_tree_root_node(tree.get()));
        const double percent = 100.0 * static_cast<double>(errors.bytes) / static_cast<double>(text.size());
        if (errors.bytes > 0) print(path, percent, errors);
        return percent;
    }

private:
    std::unique_ptr<TSParser, decltype(&ts_parser_delete)> m_parser{ts_parser_new(), ts_parser_delete};
};

} // namespace

int main(int count, char** arguments) {
    const TSLanguage* language = count < 3 ? nullptr : tessarine::languages::grammarNamed(arguments[1]);
    if (language == nullptr) {
        std::cerr << "grammar_errors GRAMMAR FILE...\n";
        return 2;
    }
    const Measure measure(language);
    const auto good = std::count_if(arguments + 2, arguments + count,
                                    [&](const char* path) { return measure.of(path) < 1; });
    std::cout << good << " of " << count - 2 << " files have errors in less than 1 % of their bytes\n";
}
