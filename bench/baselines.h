// The bare libraries, doing the least that could count as the same work.
#pragma once

#include <cstddef>
#include <filesystem>

namespace bench {

/// Reads the file whole and parses it with expat, which fills a struct per entry. Returns the
/// number of entries.
std::size_t LoadWithExpat(const std::filesystem::path& project);

/// Loads the file with pugixml. Returns the number of entries.
std::size_t LoadWithPugixml(const std::filesystem::path& project);

/// Builds a document with that many entries node by node with pugixml and writes it. With
/// `durable` the file is flushed to the disk and read back, as a careful save does.
void SaveWithPugixml(std::size_t entries, const std::filesystem::path& target, bool durable);

/// The same for the side file of such a project: an item per entry with eight metadata.
void ExportWithPugixml(std::size_t entries, const std::filesystem::path& target);

/// Loads the file with pugixml and looks at every name, attribute and text of it. Returns how many
/// bytes they have.
std::size_t WalkWithPugixml(const std::filesystem::path& file);

} // namespace bench
