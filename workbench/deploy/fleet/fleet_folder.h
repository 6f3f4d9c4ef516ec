// A folder that is written beside its place and put there whole.
#pragma once

#include <filesystem>
#include <string_view>

namespace workbench {

/// Is removed with the object unless it was put in place.
class TFleetFolder {
public:
  /// Makes a folder beside `target`, and the directories above. Throws std::system_error.
  explicit TFleetFolder(const std::filesystem::path& target);
  ~TFleetFolder();
  TFleetFolder(const TFleetFolder&) = delete;
  TFleetFolder& operator=(const TFleetFolder&) = delete;

  const std::filesystem::path& Path() const { return FPath; }
  /// Takes the place of what stands there, which goes. Throws std::system_error.
  void PutInPlace();

private:
  std::filesystem::path FTarget;
  std::filesystem::path FPath;
};

/// A directory of the user alone, where temporary files stand. Goes with the object.
class TPrivateDirectory {
public:
  /// Throws std::system_error.
  TPrivateDirectory();
  ~TPrivateDirectory();
  TPrivateDirectory(const TPrivateDirectory&) = delete;
  TPrivateDirectory& operator=(const TPrivateDirectory&) = delete;

  const std::filesystem::path& Path() const { return FPath; }

private:
  std::filesystem::path FPath;
};

/// Writes a new file, with the directories above it. Throws std::system_error.
void WriteFleetFile(const std::filesystem::path& file, std::string_view text);

} // namespace workbench
