// A project that deploys a library with its links.
#pragma once

#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace integration {

/// A library of three names.
inline void WriteLibrary(const TWorkplace& place, const std::string& content = "library") {
  place.Write("lib/libx.so.1.2.3", content);
  std::filesystem::create_symlink("libx.so.1.2.3", place.Path("lib/libx.so.1"));
  std::filesystem::create_symlink("libx.so.1", place.Path("lib/libx.so"));
}

/// A project "p.vproj" with the library on its list, and the folder "there" as its target.
inline void MakeLibraryProject(const TWorkplace& place) {
  WriteLibrary(place);
  ASSERT_EQ(place.Run({"new", "p.vproj", "--platforms", "Linux64"}).Status, 0);
  ASSERT_EQ(place.Run({"add", "p.vproj", "lib/libx.so"}).Status, 0);
  ASSERT_EQ(
      place.Run({"profile", "add", "box", "-p", "Linux64", "--path", "there", "--default"}).Status,
      0);
  place.Write("Linux64/Debug/p", "program");
}

/// What a link stores; "no link" for what is none.
inline std::string LinkAt(const TWorkplace& place, const std::string& name) {
  std::error_code error;
  const std::filesystem::path text = std::filesystem::read_symlink(place.Path(name), error);
  return error ? "no link" : text.string();
}

/// Puts a link in place of what is there.
inline void LeadTo(const TWorkplace& place, const std::string& name, const std::string& text) {
  std::filesystem::remove(place.Path(name));
  std::filesystem::create_symlink(text, place.Path(name));
}

/// Puts a file in place of what is there, also of a link.
inline void PutFile(const TWorkplace& place, const std::string& name, const std::string& content) {
  std::filesystem::remove(place.Path(name));
  place.Write(name, content);
}

} // namespace integration
