// Names of the elements and attributes of the Deployment section in a project file.
#pragma once

#include <string_view>

namespace deployment {

/// Name of the section, of its storage node and of its root element; compared ignoring case.
inline constexpr std::string_view DeploymentSectionName = "Deployment";

/// Elements and attributes inside the section; compared exactly. They stand in users' project
/// files and never change.
namespace section_names {

// The section itself and what stands directly in it.
inline constexpr std::string_view Version = "Version";
inline constexpr std::string_view DeployFile = "DeployFile";
inline constexpr std::string_view DeployClass = "DeployClass";
inline constexpr std::string_view ProjectRoot = "ProjectRoot";

// Attributes. "Platform" is an attribute of ProjectRoot and an element inside an entry.
inline constexpr std::string_view Name = "Name";
inline constexpr std::string_view Platform = "Platform";
inline constexpr std::string_view LocalName = "LocalName";
inline constexpr std::string_view Configuration = "Configuration";
inline constexpr std::string_view Class = "Class";
inline constexpr std::string_view Description = "Description";
inline constexpr std::string_view Condition = "Condition";
inline constexpr std::string_view Required = "Required";

// Elements with the values of one platform.
inline constexpr std::string_view RemoteDir = "RemoteDir";
inline constexpr std::string_view Operation = "Operation";
inline constexpr std::string_view LocalCommand = "LocalCommand";
inline constexpr std::string_view RemoteCommand = "RemoteCommand";
inline constexpr std::string_view RemoteName = "RemoteName";
inline constexpr std::string_view Enabled = "Enabled";
inline constexpr std::string_view Overwrite = "Overwrite";
inline constexpr std::string_view Extensions = "Extensions";

} // namespace section_names
} // namespace deployment
