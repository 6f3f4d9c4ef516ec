#include "package/host/api/repositoryfile.h"

#include "package/common/path_text.h"

namespace deployment {

std::string RepositoryFile(const IAppStrings& strings, std::string_view name) {
  const std::string folder = WithTrailingDelimiter(strings.fnRootDir()) + "ObjRepos";
  return strings.GetLocaleFile(WithTrailingDelimiter(folder).append(name));
}

} // namespace deployment
