// Project files of any size to measure on.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace bench {

/// Local name of an entry.
std::string EntryName(std::size_t entry);

/// A project file with that many entries of two platforms each, made once per size and removed
/// when the program ends.
const std::filesystem::path& SampleProject(std::size_t entries);

/// The same with that many runtime packages in its settings, and their files on disk.
std::filesystem::path SampleProjectWithPackages(std::size_t entries, std::size_t packages);

/// A project without entries and with that many files of its own, of four types.
std::filesystem::path SampleProjectWithFiles(std::size_t files);

} // namespace bench
