#pragma once

#include "tools/bench/Record.h"

#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tessarine {

struct Figure {
    double median = 0;
    double p99 = 0;
};

using Figures = std::map<std::string, Figure>; // by the key of a row

// A text in a file for the peers to read, until the end.
class SharedFile {
public:
    explicit SharedFile(const std::string& text)
        : m_path(std::filesystem::temp_directory_path() / ("bench-" + std::to_string(getpid()) + ".c")) {
        FILE* file = std::fopen(m_path.c_str(), "wb");
        m_isWritten = file && std::fwrite(text.data(), 1, text.size(), file) == text.size();
        if (file) std::fclose(file);
    }

    SharedFile(const SharedFile&) = delete;
    SharedFile& operator=(const SharedFile&) = delete;

    ~SharedFile() { std::filesystem::remove(m_path); }

    bool isWritten() const { return m_isWritten; }

    std::string path() const { return m_path.string(); }

private:
    std::filesystem::path m_path;
    bool m_isWritten;
};

// What a peer prints: lines of "key|median|p99".
inline Figures measurePeer(const std::string& command, const std::string& path) {
    Figures figures;
    FILE* output = popen((command + " '" + path + "'").c_str(), "r");
    if (!output) return figures;
    char key[64];
    Figure figure;
    while (std::fscanf(output, " %63[^|]|%lf|%lf", key, &figure.median, &figure.p99) == 3)
        figures[key] = figure;
    pclose(output);
    return figures;
}

// The figures of ours and of its peers beside each other, ours first.
class PeerTable {
public:
    explicit PeerTable(Figures ours) { add("Tessarine", std::move(ours)); }

    void add(std::string name, Figures figures) {
        m_columns.emplace_back(std::move(name), std::move(figures));
    }

    void printHead() const {
        std::printf("%-42s", "");
        for (const auto& [name, figures] : m_columns)
            std::printf(" %31s", name.c_str());
        std::printf("\n");
    }

    // Median, p99, and the median against ours.
    void printRow(const char* what, const std::string& key, const std::string& group = {}) const {
        keepRow(group.empty() ? what : group + ": " + what, key);
        std::printf("%-42s", what);
        const double ours = m_columns.front().second.at(key).median;
        for (const auto& [name, figures] : m_columns) {
            const auto found = figures.find(key);
            if (found == figures.end())
                std::printf(" %31s", "-");
            else
                std::printf(" %11.3f %11.3f %7.2f", found->second.median, found->second.p99,
                            found->second.median / ours);
        }
        std::printf("\n");
    }

    // For the tables and plots, without printing it.
    void keepRow(const std::string& what, const std::string& key, double size = 0) const {
        for (const auto& [name, figures] : m_columns)
            if (const auto found = figures.find(key); found != figures.end())
                bench::keep({what, name, found->second.median, found->second.p99, "", size});
    }

private:
    std::vector<std::pair<std::string, Figures>> m_columns;
};

} // namespace tessarine
