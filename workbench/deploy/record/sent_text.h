// Texts that are put on a target.
#pragma once

#include "workbench/json/json.h"
#include "workbench/remote/target/remote_connection.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace workbench {

/// A text on its way to a target, which may be large: in a file of this machine that goes with the
/// object.
class TSentText {
public:
  /// `write` hands the text over piece by piece. Throws std::system_error, and what `write` throws.
  explicit TSentText(const std::function<void(const TTakeText& take)>& write);
  ~TSentText();
  TSentText(const TSentText&) = delete;
  TSentText& operator=(const TSentText&) = delete;

  const std::filesystem::path& File() const { return FFile; }

private:
  std::filesystem::path FFile;
};

/// Puts a file with that text in place whole, in a directory that is there; the reason when that
/// failed. Throws TConnectionError.
std::string PutText(IRemoteConnection& connection, const TRemoteName& name, const TSentText& text);
std::string PutText(IRemoteConnection& connection, const TRemoteName& name, std::string_view text);

} // namespace workbench
