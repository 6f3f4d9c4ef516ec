// The error of everything that writes files of the user.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

namespace workbench {

/// A file was not written as it was asked. what() is one sentence that names the file, says what
/// was not done and why, and which content stands on disk now: the old or the new one.
class TSaveError : public std::runtime_error {
public:
  TSaveError(const std::string& text, std::filesystem::path file)
      : std::runtime_error(text), FFile(std::move(file)) {}

  /// The file that was to be written.
  const std::filesystem::path& File() const { return FFile; }

private:
  std::filesystem::path FFile;
};

} // namespace workbench
