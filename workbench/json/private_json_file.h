// A JSON file of the user's own: read whole, changed under a lock, for nobody else to see.
#pragma once

#include "workbench/json/json.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace workbench {

/// One such file, of at most 16 MiB. Its directory is made with the rights 0700 and it with 0600.
class TPrivateJsonFile {
public:
  /// `kept` says what stands in it, in the plural: "settings".
  TPrivateJsonFile(std::filesystem::path file, std::string kept)
      : FFile(std::move(file)), FKept(std::move(kept)) {}

  const std::filesystem::path& File() const { return FFile; }

  /// Hands what the file says to `read`, unless there is no file. Throws TInputError, with the
  /// file, when it cannot be read or is damaged; `read` throws TInputError for what it cannot
  /// understand.
  void Read(const std::function<void(const TJson&)>& read) const;

  /// Reads the file as above, but under a lock and only if it is there; then writes what `write`
  /// returns. Nothing is written to a file that is not there when `write` returns nothing. Both are
  /// called anew when another run makes the file meanwhile. Throws TInputError as Read does and for
  /// texts that are not UTF-8, and TSaveError; the file is what it was then.
  void Change(const std::function<void(const TJson&)>& read,
              const std::function<std::optional<TJson>()>& write) const;

private:
  bool IsThere() const;
  void ReadText(std::string_view text, const std::function<void(const TJson&)>& read) const;
  std::string TextOf(const TJson& value) const;
  void Make(std::string_view text) const;
  void ChangePresent(const std::function<void(const TJson&)>& read,
                     const std::function<std::optional<TJson>()>& write) const;

  std::filesystem::path FFile;
  std::string FKept;
};

} // namespace workbench
