// Where the host is installed, what it is called and which language it speaks.
#pragma once

#include "package/host/api/appstrs.h"
#include "workbench/settings/settings_store.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// The root directory, below which ObjRepos stands: the option when it is not empty, else the
/// environment variable ZELK, else the place that was installed with the running program, else the
/// tree that it was built in. A full path that need not exist.
std::filesystem::path FindRoot(const std::filesystem::path& option);

/// Files below ObjRepos/Deploy, by their names there.
inline constexpr std::string_view DefaultsFile = "defaults.xml";
inline constexpr std::string_view SideFileTemplate = "deploymenttemplate.xml";

/// Throws TInputError when the root has no directory ObjRepos/Deploy.
void RequireShippedDirectory(const std::filesystem::path& root);
/// Throws TInputError when the file is not there, in the user's language or without one.
void RequireShippedFile(const deployment::IAppStrings& strings, std::string_view name);

/// Languages that the environment asks for, the wanted ones first, such as "de_AT", "de". "en" is
/// the language of files without one.
std::vector<std::string> UserLanguages();

/// Answers by the environment and by the settings, which must outlive it. File names and the root
/// are stored paths.
class TAppStrings : public deployment::IAppStrings {
public:
  TAppStrings(const std::filesystem::path& root, const TSettings& settings);

  std::string fnRootDir() const override;
  std::string rkBaseRegKey() const override;
  std::string CoreProductName() const override;
  std::string GetLocaleFile(std::string_view fileName) const override;

private:
  std::string FRoot;
  const TSettings& FSettings;
};

} // namespace workbench
