// Catalogs of optional files of any size to measure on.
#pragma once

#include <cstddef>
#include <filesystem>

namespace bench {

/// Where the catalog stands below a root.
inline constexpr const char* CatalogName = "ObjRepos/Deploy/featuredfiles.xml";

/// A root that holds nothing but a catalog of that many features in 100 classes;
/// one feature in a hundred goes with ".dat". Each has two files for three platforms.
std::filesystem::path SampleCatalogRoot(std::size_t features);

} // namespace bench
