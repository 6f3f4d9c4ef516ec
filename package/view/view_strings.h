// The string table of the view: every text for the user that is not a caption of a form.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace deployment {

/// Ids of the texts; "%s" in a text stands for a value.
enum class TViewString {
  AllPlatforms = 65520,
  NotConnected,
  Unknown,
  Newer,
  Older,
  Same,
  NotFound,
  ProfileRequired, ///< values: platform
  ConfirmDelete,   ///< values: local name
  ChangePlatform,  ///< values: active platform, chosen platform
  RemotePath,
  EnterRemotePath,
  ConfirmChange,
  Always,
  Never,
  Deployment,
};

std::string_view LoadText(TViewString id);

/// The text with each "%s" replaced by the next value. A value is taken as it is.
std::string FormatText(TViewString id, std::initializer_list<std::string_view> values);

} // namespace deployment
