#include "languages/catalogue/QueryBundles.h"

#include "Tessarine/base/FatalError.h"

#include <mutex>
#include <string>

namespace tessarine::languages {

namespace {

class BundlesFolder {
public:
    std::filesystem::path get() {
        const std::scoped_lock lock(m_mutex);
        return m_folder;
    }

    void set(std::filesystem::path folder) {
        const std::scoped_lock lock(m_mutex);
        m_folder = std::move(folder);
    }

private:
    static std::filesystem::path besideProgram() {
        std::error_code error;
        const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
        return program.parent_path().parent_path() / "share" / "tessarine";
    }

    std::mutex m_mutex;
    std::filesystem::path m_folder = besideProgram();
};

BundlesFolder& bundlesFolder() {
    static BundlesFolder folder;
    return folder;
}

} // namespace

void setQueryBundlesFolder(std::filesystem::path folder) {
    bundlesFolder().set(std::move(folder));
}

std::filesystem::path queryFile(std::string_view bundle, std::string_view name) {
    const std::string bundleName = "TreeSitterLanguages_TreeSitter" + std::string(bundle) + "Queries";
    const auto folder = bundlesFolder().get() / (bundleName + ".bundle");
    std::error_code error;
    if (!std::filesystem::is_directory(folder, error))
        fatalError("unable to find bundle named " + bundleName);
    auto file = folder / "queries" / (std::string(name) + ".scm");
    if (!std::filesystem::is_regular_file(file, error)) fatalError("unable to find " + file.string());
    return file;
}

} // namespace tessarine::languages
