#include "workbench/deploy/record/record_place.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"

namespace workbench {

std::string RecordDirectoryOf(std::string_view root) {
  while (!root.empty() && deployment::IsPathDelimiter(root.back()))
    root.remove_suffix(1);
  std::string name;
  for (const char c : root)
    name += deployment::IsPathDelimiter(c) || c == ':' ? '_' : c;
  if (name.empty() || name == "." || name == "..")
    name += '_';
  return std::string(RecordDirectory) + "/" + name;
}

bool IsRecordPath(std::string_view path) {
  return deployment::SameText(path.substr(0, path.find('/')), RecordDirectory);
}

} // namespace workbench
