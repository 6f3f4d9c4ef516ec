// Ids of the deployment classes that default entries belong to. The ids of artwork classes are the
// names of the project options, and stand in the tables of platform_artwork.cpp.
#pragma once

#include <string_view>

namespace deployment::class_names {

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

} // namespace deployment::class_names
