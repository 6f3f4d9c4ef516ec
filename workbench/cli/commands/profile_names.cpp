#include "workbench/cli/commands/profile_names.h"

#include "package/common/delimited_list.h"
#include "workbench/cli/context/name_hint.h"

#include <vector>

namespace workbench {
namespace {

template <class TNamed>
[[noreturn]] void RaiseUnknown(const std::string& kind, const std::string& name,
                               const std::vector<TNamed>& known) {
  std::vector<std::string> names;
  names.reserve(known.size());
  for (const TNamed& each : known)
    names.push_back(each.Name);
  throw TUsageError("there is no " + kind + " \"" + name + "\"" +
                    (names.empty() ? std::string("; none was added yet")
                                   : "; known are: " + deployment::JoinDelimited(names, ", ") +
                                         HintAt(name, names)));
}

} // namespace

const TProfile& RequireProfile(const TProfileStore& profiles, const std::string& name) {
  if (const TProfile* profile = profiles.Find(name))
    return *profile;
  RaiseUnknown("profile", name, profiles.List());
}

const TProfileGroup& RequireGroup(const TProfileStore& profiles, const std::string& name) {
  if (const TProfileGroup* group = profiles.FindGroup(name))
    return *group;
  RaiseUnknown("group", name, profiles.Groups());
}

} // namespace workbench
