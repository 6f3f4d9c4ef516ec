#include "workbench/services/app_strings.h"

#include "package/common/delimited_list.h"
#include "package/common/errors.h"
#include "package/common/path_text.h"
#include "package/host/api/repositoryfile.h"
#include "workbench/files/machine_path.h"
#include "workbench/files/own_program.h"

#include <algorithm>
#include <cstdlib>

namespace workbench {
namespace {

constexpr std::string_view ProductNameSetting = "product-name";
constexpr std::string_view DefaultProductName = "Deployment Manager";
constexpr std::string_view PlainLanguage = "en";

std::string_view Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : std::string_view();
}

bool IsRoot(const std::filesystem::path& directory) {
  std::error_code ignored;
  return std::filesystem::is_directory(directory / "ObjRepos", ignored);
}

std::filesystem::path FullPath(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path full = std::filesystem::absolute(path, error);
  return (error ? path : full).lexically_normal();
}

// "de_AT" of "de_AT.UTF-8@euro"; empty for a name that is no name of a language.
std::string_view LanguageOf(std::string_view locale) {
  const std::string_view name = locale.substr(0, locale.find_first_of(".@"));
  if (name == "C" || name == "POSIX")
    return PlainLanguage;
  const bool isName = std::all_of(name.begin(), name.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  });
  return isName ? name : std::string_view();
}

void AddLanguage(std::vector<std::string>& languages, std::string_view name) {
  if (!name.empty() && std::find(languages.begin(), languages.end(), name) == languages.end())
    languages.emplace_back(name);
}

[[noreturn]] void RaiseNotInstalled(const std::string& what, const std::filesystem::path& place) {
  throw deployment::TInputError("there is no such " + what +
                                    ": the installation is not complete; --root or the variable "
                                    "ZELK names another one",
                                {place.string(), 0});
}

} // namespace

std::filesystem::path FindRoot(const std::filesystem::path& option) {
  if (!option.empty())
    return FullPath(option);
  if (const std::string_view variable = Environment("ZELK"); !variable.empty())
    return FullPath(ToMachinePath(variable));
  const std::filesystem::path program = OwnProgram().parent_path();
  const std::filesystem::path installed = program / "../share/deployment-manager";
  const std::filesystem::path built = program / "../.."; // the source tree above the build
  return FullPath(!IsRoot(installed) && IsRoot(built) ? built / "" : installed);
}

void RequireShippedDirectory(const std::filesystem::path& root) {
  std::error_code ignored;
  const std::filesystem::path directory = root / "ObjRepos" / "Deploy";
  if (!std::filesystem::is_directory(directory, ignored))
    RaiseNotInstalled("directory", directory);
}

void RequireShippedFile(const deployment::IAppStrings& strings, std::string_view name) {
  std::error_code ignored;
  const std::filesystem::path file =
      ToMachinePath(deployment::RepositoryFile(strings, "Deploy\\" + std::string(name)));
  if (!std::filesystem::is_regular_file(file, ignored))
    RaiseNotInstalled("file", file);
}

std::vector<std::string> UserLanguages() {
  std::string_view locale;
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (locale.empty())
      locale = Environment(name);
  }
  std::vector<std::string> languages;
  const std::string_view ownLanguage = LanguageOf(locale.empty() ? "C" : locale);
  // The list of languages counts only where a language was chosen at all.
  std::vector<std::string_view> wanted;
  if (ownLanguage != PlainLanguage)
    wanted = deployment::SplitDelimited(Environment("LANGUAGE"), ':');
  wanted.push_back(locale.empty() ? "C" : locale);
  for (const std::string_view entry : wanted) {
    const std::string_view language = LanguageOf(entry);
    AddLanguage(languages, language);
    AddLanguage(languages, language.substr(0, language.find('_')));
  }
  return languages;
}

TAppStrings::TAppStrings(const std::filesystem::path& root, const TSettings& settings)
    : FRoot(ToStoredPath(root)), FSettings(settings) {}

std::string TAppStrings::fnRootDir() const {
  return FRoot;
}

std::string TAppStrings::rkBaseRegKey() const {
  return "Software\\DeploymentManager";
}

std::string TAppStrings::CoreProductName() const {
  return FSettings.Get(ProductNameSetting).value_or(std::string(DefaultProductName));
}

std::string TAppStrings::GetLocaleFile(std::string_view fileName) const {
  const std::string_view extension = deployment::ExtensionPart(fileName);
  for (const std::string& language : UserLanguages()) {
    std::string translated =
        deployment::ChangeExtension(fileName, "." + language + std::string(extension));
    std::error_code ignored;
    if (std::filesystem::is_regular_file(ToMachinePath(translated), ignored))
      return translated;
    // Whoever reads English before further languages is served by the plain file.
    if (language == PlainLanguage)
      break;
  }
  return std::string(fileName);
}

} // namespace workbench
