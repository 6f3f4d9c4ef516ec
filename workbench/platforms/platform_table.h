// The platforms that projects can be built for, as data.
#pragma once

#include "package/common/ordered_dictionary.h"
#include "package/host/api/platforms.h"
#include "package/host/api/xml.h"

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// What the name of an output has before and behind the base name.
struct TOutputNaming {
  std::string Prefix;
  std::string Extension; ///< with its dot

  bool operator==(const TOutputNaming&) const = default;
};

/// What holds for projects of one personality on a platform.
struct TPlatformPersonality {
  std::string SymbolExtension; ///< with its dot; empty when there are no symbol files
  bool RequiresProfile = false;

  bool operator==(const TPlatformPersonality&) const = default;
};

/// The facts of one platform.
struct TPlatformFacts {
  std::string Name;
  bool Mobile = false;
  std::string DefaultRemoteDir;
  bool RequiresProfile = false;
  bool IgnoresCase = false; ///< the target's file system takes "A" and "a" for one name
  deployment::TOrderedDictionary<TOutputNaming> Outputs; ///< by kind
  deployment::TOrderedDictionary<TPlatformPersonality> Personalities;
};

/// One platform as the package asks for it.
class TPlatform final : public deployment::IPlatform {
public:
  explicit TPlatform(TPlatformFacts facts) : FFacts(std::move(facts)) {}

  std::string GetName() const override { return FFacts.Name; }
  bool IsMobile() const override { return FFacts.Mobile; }
  std::string GetDefaultRemoteDir() const override { return FFacts.DefaultRemoteDir; }
  std::string GetOutputPrefix(std::string_view outputKind) const override;
  std::string GetOutputExtension(std::string_view outputKind) const override;
  bool RequiresProfile(std::string_view personality) const override;
  bool PersonalityRequiresProfile(std::string_view personality) const override;

  /// True when the target takes names that differ in case alone for one.
  bool IgnoresCase() const { return FFacts.IgnoresCase; }
  /// Extension of symbol files with its dot; empty for none and for an unknown personality.
  std::string SymbolExtension(std::string_view personality) const;
  const TPlatformFacts& Facts() const { return FFacts; }

private:
  const TOutputNaming* FindOutput(std::string_view kind) const;

  TPlatformFacts FFacts;
};

/// All platforms, in the order of the table. Pointers to platforms are good as long as the table.
class TPlatformTable {
public:
  /// The table that ships with the workbench.
  static TPlatformTable BuiltIn();
  /// Reads the table from the root element of its file. Throws TInputError with the place of what
  /// is wrong.
  static TPlatformTable FromXml(deployment::IXMLNode& root);

  /// Adds the platforms of another table; one of the same name takes the place of that here.
  /// Pointers to platforms are no good any more.
  void Overlay(TPlatformTable other);

  /// Compared exactly; null when unknown.
  const TPlatform* FindPlatform(std::string_view name) const { return FPlatforms.Find(name); }
  /// True when programs of the platform are packed in a folder here and go to no machine: those
  /// for Android, and all that need no profile.
  bool IsStaged(std::string_view platform, std::string_view personality) const;
  std::vector<std::string> Names() const;
  const deployment::TOrderedDictionary<TPlatform>& Platforms() const { return FPlatforms; }

private:
  deployment::TOrderedDictionary<TPlatform> FPlatforms;
};

} // namespace workbench
