#include "workbench/settings/source_consent.h"

#include "workbench/settings/consent_texts.h"

#include <algorithm>
#include <set>

namespace workbench {
namespace {

std::string KeyOf(const std::filesystem::path& project) {
  return std::string(AllowedSourcesPrefix) + std::filesystem::weakly_canonical(project).string();
}

std::set<std::string> Allowed(const TSettings& settings, const std::string& key) {
  const std::vector<std::string> files = ConsentTexts(settings, key);
  return {files.begin(), files.end()};
}

} // namespace

std::vector<std::string> SourcesWithoutConsent(const TSettings& settings,
                                               const std::filesystem::path& project,
                                               const std::vector<std::string>& files) {
  std::vector<std::string> rest;
  const std::set<std::string> allowed = Allowed(settings, KeyOf(project));
  std::ranges::copy_if(files, std::back_inserter(rest),
                       [&](const std::string& file) { return !allowed.contains(file); });
  return rest;
}

void AllowSources(TSettings& settings, const std::filesystem::path& project,
                  const std::vector<std::string>& files) {
  const std::string key = KeyOf(project);
  std::set<std::string> allowed = Allowed(settings, key);
  allowed.insert(files.begin(), files.end());
  settings.Set(key, TextOfConsent({allowed.begin(), allowed.end()}));
}

} // namespace workbench
