#include "workbench/deploy/plan/link_texts.h"

#include "workbench/files/sha256.h"

#include <system_error>
#include <unordered_map>

namespace workbench {
namespace {

namespace fs = std::filesystem;

// The name itself, under the real name of its directory; asked once for each directory.
class TRealNames {
public:
  std::string Of(const fs::path& file) {
    const fs::path directory = file.parent_path();
    const auto [real, isNew] = FDirectories.try_emplace(directory.native());
    if (isNew) {
      std::error_code error;
      real->second = fs::canonical(directory, error);
      if (error)
        real->second = directory.lexically_normal();
    }
    return (real->second / file.filename()).native();
  }

private:
  std::unordered_map<std::string, fs::path> FDirectories;
};

} // namespace

std::vector<std::string> LinkTexts(std::span<const TLinkCandidate> files) {
  std::vector<std::string> texts(files.size());
  std::vector<std::size_t> links;
  std::error_code ignored;
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (files[i].MayTakePart && fs::is_symlink(files[i].LocalFile, ignored))
      links.push_back(i);
  }
  if (links.empty())
    return texts;
  TRealNames real;
  std::unordered_map<std::string, std::size_t> byName;
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (files[i].MayTakePart)
      byName.emplace(real.Of(files[i].LocalFile), i);
  }
  for (const std::size_t i : links) {
    std::error_code error;
    const fs::path text = fs::read_symlink(files[i].LocalFile, error);
    if (error || text.is_absolute())
      continue;
    const auto found = byName.find(real.Of(files[i].LocalFile.parent_path() / text));
    if (found == byName.end() || found->second == i)
      continue;
    const TRemoteName& there = files[found->second].Target;
    texts[i] = (fs::path(there.Directory) / there.Name)
                   .lexically_relative(files[i].Target.Directory)
                   .generic_string();
  }
  return texts;
}

std::string LinkHash(std::string_view text) {
  TSHA256 hash;
  hash.Add(text);
  return hash.Text();
}

} // namespace workbench
