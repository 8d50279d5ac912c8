// Runs a fuzz target where there is no libFuzzer: first the files of the given folders as they are, then
// mutations of them.
//   -runs=N             so many mutations
//   -max_total_time=S   or, where no number is given, as many as S seconds allow
//   -seed=N             of the random numbers
// An input that stops the program is left in the file crash-input.

#include <algorithm>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Input = std::vector<std::uint8_t>;

constexpr std::size_t longestInput = 512;

struct Options {
    std::uint64_t runs = 0;
    std::uint64_t seconds = 0;
    std::uint64_t seed = 1;
    std::vector<Input> corpus;
};

Input inputBeingRun;

void run(Input input) {
    inputBeingRun = std::move(input);
    LLVMFuzzerTestOneInput(inputBeingRun.data(), inputBeingRun.size());
}

void keepInput(int) {
    if (std::FILE* file = std::fopen("crash-input", "wb")) {
        std::fwrite(inputBeingRun.data(), 1, inputBeingRun.size(), file);
        std::fclose(file);
    }
    std::_Exit(1);
}

bool readNumber(std::string_view argument, std::string_view name, std::uint64_t& number) {
    if (!argument.starts_with(name)) return false;
    const std::string_view digits = argument.substr(name.size());
    return std::from_chars(digits.begin(), digits.end(), number).ec == std::errc();
}

void readFolder(const char* folder, std::vector<Input>& corpus) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files.push_back(entry.path());
    std::ranges::sort(files); // the same order everywhere: the seed is to tell all
    for (const auto& file : files) {
        std::ifstream stream(file, std::ios::binary);
        corpus.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
}

Options optionsOf(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i)
        if (!readNumber(argv[i], "-runs=", options.runs) &&
            !readNumber(argv[i], "-max_total_time=", options.seconds) &&
            !readNumber(argv[i], "-seed=", options.seed))
            readFolder(argv[i], options.corpus);
    if (options.corpus.empty()) options.corpus.emplace_back();
    return options;
}

class Mutator {
public:
    explicit Mutator(const Options& options)
        : m_corpus(options.corpus)
        , m_random(options.seed) {}

    Input mutation() {
        Input input = m_corpus[below(m_corpus.size())];
        for (auto changes = 1 + below(6); changes > 0; --changes)
            change(input);
        input.resize(std::min(input.size(), longestInput));
        return input;
    }

private:
    std::size_t below(std::size_t limit) { return m_random() % limit; }

    void change(Input& input) {
        const Input& other = m_corpus[below(m_corpus.size())];
        const auto at = static_cast<std::ptrdiff_t>(below(input.size() + 1));
        const std::size_t choice = below(4);
        if (choice == 0)
            input.insert(input.begin() + at, static_cast<std::uint8_t>(m_random()));
        else if (choice == 1)
            input.insert(input.begin() + at,
                         other.begin() + static_cast<std::ptrdiff_t>(below(other.size() + 1)), other.end());
        else if (at == std::ssize(input))
            return;
        else if (choice == 2)
            input.erase(input.begin() + at);
        else
            input[static_cast<std::size_t>(at)] = static_cast<std::uint8_t>(m_random());
    }

    const std::vector<Input>& m_corpus;
    std::mt19937_64 m_random;
};

} // namespace

int main(int argc, char** argv) {
    const Options options = optionsOf(argc, argv);
    std::signal(SIGABRT, keepInput);
    std::signal(SIGSEGV, keepInput);
    for (const Input& input : options.corpus)
        run(input);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(options.seconds);
    Mutator mutator(options);
    std::uint64_t done = 0;
    while (done < options.runs ||
           (options.runs == 0 && options.seconds > 0 && std::chrono::steady_clock::now() < end)) {
        run(mutator.mutation());
        ++done;
    }
    std::printf("%zu inputs and %llu mutations, seed %llu\n", options.corpus.size(),
                static_cast<unsigned long long>(done), static_cast<unsigned long long>(options.seed));
    return 0;
}
