// Names of the buttons above the file list, for hosts that give them keys or press them.
#pragma once

#include <string_view>

namespace deployment::view_button {

inline constexpr std::string_view Reconcile = "tbReconcile";
inline constexpr std::string_view AddFiles = "tbAddFiles";
inline constexpr std::string_view DeleteFile = "tbDeleteFile";
inline constexpr std::string_view AddFeature = "tbAddFeature";
inline constexpr std::string_view Deploy = "tbDeploy";
inline constexpr std::string_view Connect = "tbConnect";
inline constexpr std::string_view Revert = "tbRevert";
inline constexpr std::string_view CheckAll = "tbCheckAll";
inline constexpr std::string_view UncheckAll = "tbUncheckAll";
inline constexpr std::string_view CheckSelection = "tbCheckSelection";
inline constexpr std::string_view UncheckSelection = "tbUncheckSelection";
inline constexpr std::string_view ChangeRemotePath = "tbChangeRemotePath";
inline constexpr std::string_view ChangeOverwrite = "tbChangeOverwrite";

} // namespace deployment::view_button
