// Makes archives, those that nobody should unpack included.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <sys/types.h>

struct archive;

namespace workbench::testing {

/// Writes the archive as members come; it is whole when the object goes.
class TArchiveMaker {
public:
  enum class TFormat { Tar, TarGzip, TarXz, Zip };
  static constexpr time_t Time = 1'600'000'000; ///< of its files

  explicit TArchiveMaker(const std::filesystem::path& file, TFormat format = TFormat::Tar);
  ~TArchiveMaker();
  TArchiveMaker(const TArchiveMaker&) = delete;
  TArchiveMaker& operator=(const TArchiveMaker&) = delete;

  TArchiveMaker& File(const std::string& name, const std::string& content, mode_t rights = 0644);
  TArchiveMaker& Directory(const std::string& name);
  TArchiveMaker& Link(const std::string& name, const std::string& text);
  TArchiveMaker& HardLink(const std::string& name, const std::string& linked);
  /// A device or a pipe, by its kind as in a result of stat.
  TArchiveMaker& Special(const std::string& name, mode_t kind);

private:
  struct archive* FArchive;
};

} // namespace workbench::testing
