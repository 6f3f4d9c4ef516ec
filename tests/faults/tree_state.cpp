#include "tests/faults/tree_state.h"

#include <fstream>
#include <sstream>

namespace faults {

namespace fs = std::filesystem;

TTreeState StateOf(const fs::path& directory) {
  TTreeState state;
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(directory, ignored)) {
    const std::string name = entry.path().lexically_relative(directory).string();
    if (entry.is_symlink()) {
      state[name] = "-> " + fs::read_symlink(entry.path()).string();
    } else if (entry.is_regular_file()) {
      std::ostringstream text;
      text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
      state[name] = text.str();
    }
  }
  return state;
}

void Restore(const fs::path& original, const fs::path& directory) {
  fs::remove_all(directory);
  fs::copy(original, directory, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(original)) {
    if (entry.is_symlink() || !entry.is_regular_file())
      continue;
    const fs::path copy = directory / entry.path().lexically_relative(original);
    fs::last_write_time(copy, entry.last_write_time());
    fs::permissions(copy, entry.status().permissions());
  }
}

bool IsTemporaryName(const std::string& path) {
  const std::string name = fs::path(path).filename().string();
  return (name.starts_with('.') && name.ends_with(".tmp")) ||
         (name.starts_with(".deploymgr-") && name.ends_with(".part"));
}

} // namespace faults
