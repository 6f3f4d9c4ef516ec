#include "workbench/json/private_json_file.h"

#include "package/common/errors.h"
#include "workbench/files/file_reader.h"
#include "workbench/files/file_saver.h"

#include <array>
#include <sys/stat.h>

namespace workbench {
namespace {

constexpr std::uint64_t LargestFile = std::uint64_t(16) * 1024 * 1024;

} // namespace

bool TPrivateJsonFile::IsThere() const {
  struct stat status = {};
  if (::lstat(FFile.c_str(), &status) == 0)
    return true;
  if (errno == ENOENT || errno == ENOTDIR)
    return false;
  throw deployment::TInputError("the " + FKept + " file cannot be read: " + SystemReason(errno),
                                {FFile.string(), 0});
}

void TPrivateJsonFile::ReadText(std::string_view text,
                                const std::function<void(const TJson&)>& read) const {
  try {
    read(ParseJson(text));
  } catch (const deployment::TInputError& error) {
    throw deployment::TInputError("the " + FKept + " file is damaged: " + error.what() +
                                      "; mend it or remove it",
                                  {FFile.string(), error.Place().Line});
  }
}

std::string TPrivateJsonFile::TextOf(const TJson& value) const {
  if (!IsStorableJson(value))
    throw deployment::TInputError("the " + FKept +
                                      " would hold a text that is not UTF-8 and cannot be kept",
                                  {FFile.string(), 0});
  return JsonText(value) + "\n";
}

void TPrivateJsonFile::Read(const std::function<void(const TJson&)>& read) const {
  if (!FFile.empty() && IsThere())
    ReadText(ReadWholeFile(FFile, LargestFile, FKept + " file").Text(), read);
}

void TPrivateJsonFile::Change(const std::function<void(const TJson&)>& read,
                              const std::function<std::optional<TJson>()>& write) const {
  if (FFile.empty())
    throw TSaveError("the " + FKept +
                         " were not written: neither XDG_CONFIG_HOME nor HOME names a "
                         "directory; no file was made",
                     FFile);
  if (!IsThere()) {
    const std::optional<TJson> value = write();
    if (!value)
      return;
    try {
      return Make(TextOf(*value));
    } catch (const TSaveError&) {
      if (!IsThere()) // else another run has just made it
        throw;
    }
  }
  ChangePresent(read, write);
}

void TPrivateJsonFile::Make(std::string_view text) const {
  const std::filesystem::path directory = FFile.parent_path();
  std::error_code ignored; // what is missing then shows in the next call
  std::filesystem::create_directories(directory.parent_path(), ignored);
  if (::mkdir(directory.c_str(), 0700) != 0 && errno != EEXIST)
    throw TSaveError(FFile.string() + " was not written: its directory cannot be made: " +
                         SystemReason(errno) + "; no file was made",
                     FFile);
  SaveFile({.Target = FFile,
            .Content = std::array{text},
            .Expected = std::nullopt,
            .WithBackup = false,
            .NewFileMode = 0600});
}

void TPrivateJsonFile::ChangePresent(const std::function<void(const TJson&)>& read,
                                     const std::function<std::optional<TJson>()>& write) const {
  TFileLock lock(FFile);
  const TFileContent before = ReadWholeFile(FFile, LargestFile, FKept + " file");
  ReadText(before.Text(), read);
  const std::optional<TJson> value = write();
  if (!value)
    return;
  const std::string text = TextOf(*value);
  SaveFile({.Target = FFile,
            .Content = std::array{std::string_view(text)},
            .Expected = before.Text(),
            .WithBackup = false,
            .Lock = &lock});
}

} // namespace workbench
