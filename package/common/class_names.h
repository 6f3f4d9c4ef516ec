// Ids of the deployment classes that code knows by name. They stand in users' project files and
// never change. The ids of artwork classes are the names of project options, and stand in the
// tables of platform_artwork.cpp.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace deployment::class_names {

/// Files that the user added.
inline constexpr std::string_view File = "File";
/// What an Android service project makes; put on the list by its wizard, at the user's wish.
inline constexpr std::string_view AndroidServiceOutput = "AndroidServiceOutput";
/// Modules that a program loads; listed by older versions.
inline constexpr std::string_view DependencyModule = "DependencyModule";

// Default entries, which a reconcile makes.
inline constexpr std::string_view ProjectOutput = "ProjectOutput";
inline constexpr std::string_view DebugSymbols = "DebugSymbols";
inline constexpr std::string_view DependencyPackage = "DependencyPackage";
inline constexpr std::string_view DependencyPackageDebugSymbols = "DependencyPackageDebugSymbols";
inline constexpr std::string_view DependencyPackageResource = "DependencyPackageResource";
inline constexpr std::string_view ProjectFile = "ProjectFile";
inline constexpr std::string_view ProjectAndroidManifest = "ProjectAndroidManifest";
inline constexpr std::string_view AndroidSplashImageDef = "AndroidSplashImageDef";
inline constexpr std::string_view AndroidSplashStyles = "AndroidSplashStyles";
inline constexpr std::string_view AndroidGDBServer = "AndroidGDBServer";
inline constexpr std::string_view AndroidClassesDexFile = "AndroidClassesDexFile";
inline constexpr std::string_view AndroidLibnativeX86File = "AndroidLibnativeX86File";
inline constexpr std::string_view AndroidLibnativeArmeabiFile = "AndroidLibnativeArmeabiFile";
inline constexpr std::string_view AndroidLibnativeMipsFile = "AndroidLibnativeMipsFile";
inline constexpr std::string_view ProjectiOSInfoPList = "ProjectiOSInfoPList";
inline constexpr std::string_view ProjectiOSDeviceResourceRules = "ProjectiOSDeviceResourceRules";
inline constexpr std::string_view ProjectiOSDeviceDebug = "ProjectiOSDeviceDebug";
inline constexpr std::string_view ProjectOutput_iOS32 = "ProjectOutput_iOS32";
inline constexpr std::string_view ProjectiOSEntitlements = "ProjectiOSEntitlements";
inline constexpr std::string_view ProjectOSXInfoPList = "ProjectOSXInfoPList";
inline constexpr std::string_view ProjectOSXResource = "ProjectOSXResource";
inline constexpr std::string_view ProjectOSXEntitlements = "ProjectOSXEntitlements";

/// True for classes whose entries users put on the list themselves, and may take off again; those
/// of any other class are made by a reconcile, which would bring them back. Compared exactly.
constexpr bool IsUserClass(std::string_view className) {
  return className == File || className == AndroidServiceOutput;
}

/// True for classes whose files are programs or modules, which a target may have to be allowed to
/// run. Compared exactly.
constexpr bool IsProgramClass(std::string_view className) {
  constexpr std::array Programs{ProjectOutput,    ProjectOutput_iOS32,  DependencyPackage,
                                DependencyModule, AndroidServiceOutput, AndroidGDBServer};
  return std::ranges::find(Programs, className) != Programs.end();
}

} // namespace deployment::class_names
