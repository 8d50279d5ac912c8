// Where the query files are: a bundle for each grammar, "TreeSitterLanguages_TreeSitterTOMLQueries.bundle",
// with its files in "queries".
//
// They lie in ../share/tessarine as seen from the program's own file, unless the program says where else.
#pragma once

#include <filesystem>
#include <string_view>

namespace tessarine::languages {

// Where all bundles lie. Has no effect on languages that are made already.
void setQueryBundlesFolder(std::filesystem::path folder);

// A file of a bundle, without its extension. A missing bundle or file stops the program.
std::filesystem::path queryFile(std::string_view bundle, std::string_view name);

} // namespace tessarine::languages
