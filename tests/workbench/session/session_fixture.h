// Sessions with the real package on projects in a directory of their own.
#pragma once

#include "package/common/errors.h"
#include "tests/workbench/files/save_fixture.h"
#include "tests/support/environment.h"
#include "workbench/files/file_backup.h"
#include "workbench/files/file_lock.h"
#include "workbench/files/save_error.h"
#include "workbench/session/session.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace workbench::testing {

inline constexpr std::string_view ProjectHead =
    "<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\">\n"
    "  <PropertyGroup>\n    <ProjectPersonality>Ardent.Personality</ProjectPersonality>\n"
    "    <AppType>Application</AppType>\n    <Config>Debug</Config>\n"
    "    <Platform>Win32</Platform>\n  </PropertyGroup>\n";

/// One file entry in the layout that a save writes.
inline constexpr std::string_view StoredEntry =
    "      <DeployFile LocalName=\"data\\levels.dat\" Configuration=\"Debug\" Class=\"File\">\n"
    "        <Platform Name=\"Win32\">\n          <RemoteDir>data\\</RemoteDir>\n"
    "          <RemoteName>levels.dat</RemoteName>\n        </Platform>\n      </DeployFile>\n";

inline std::string ProjectWith(std::string_view entries) {
  return std::string(ProjectHead) + "  <ProjectExtensions>\n    <Deployment Version=\"2\">\n" +
         std::string(entries) + "    </Deployment>\n  </ProjectExtensions>\n</Project>\n";
}

class TSessionTest : public TSaveTest {
protected:
  void SetUp() override {
    TSaveTest::SetUp();
    FEnvironment.Set("XDG_CONFIG_HOME", (FRoot / "config").string());
    FEnvironment.Set("LC_ALL", "C");
  }

  /// The session that the test works in, made when it is first asked for.
  TSession& Host() {
    if (!FSession)
      FSession = std::make_unique<TSession>(TSessionOptions{std::filesystem::current_path()});
    return *FSession;
  }
  TOpenProject& Open(TOpenPurpose purpose = TOpenPurpose::Look) {
    return Host().Open(FFile, purpose);
  }
  TOpenProject& OpenText(std::string_view text, TOpenPurpose purpose = TOpenPurpose::Look) {
    Write(FFile, text);
    return Open(purpose);
  }
  static void AddFile(TOpenProject& project, std::string_view name) {
    project.Deployment().AddFile("Debug", "Win32", name)->SetRemoteDir("Win32", "data\\");
  }
  /// Local names of the project's files, in order, joined by spaces.
  static std::string FilesOf(TOpenProject& project) {
    std::string names;
    for (const auto& file : project.Deployment().GetFiles())
      names += (names.empty() ? "" : " ") + file->GetLocalName();
    return names;
  }

  TEnvironment FEnvironment;
  std::unique_ptr<TSession> FSession;
};

} // namespace workbench::testing
