#include "workbench/process/command_runner.h"
#include "workbench/process/shell.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace workbench {
namespace {

// What the POSIX shell of this machine prints.
std::string Output(const std::string& command, std::string& problem) {
  std::string text;
  const std::atomic<int> cancelled = 0;
  problem = RunCommandLine(
      command, "/", [&text](std::string_view line) { text.append(line).append("\n"); }, cancelled);
  return text;
}

struct TCase {
  const char* Text;
  const char* Quoted; // null: it cannot be said
};

TEST(Shell, IsToldByItsAnswerToTheProbe) {
  std::string problem;
  EXPECT_EQ(ShellOfAnswer(Output(std::string(ShellProbe), problem)), TShell::Posix);
  EXPECT_EQ(ShellOfAnswer("deploymgr C:\\WINDOWS\\system32\\cmd.exe $PSVersionTable.PSEdition\r\n"),
            TShell::Cmd);
  EXPECT_EQ(ShellOfAnswer("deploymgr\r\n%ComSpec%\r\nDesktop\r\n"), TShell::PowerShell);
  EXPECT_EQ(ShellOfAnswer("deploymgr\n%ComSpec%\nCore\n"), TShell::PowerShell);
  EXPECT_EQ(ShellOfAnswer("deploymgr %ComSpec%\n"), TShell::None); // one that is not known
  EXPECT_EQ(ShellOfAnswer("This service allows sftp connections only.\n"), TShell::None);
  EXPECT_EQ(ShellOfAnswer(""), TShell::None);
}

TEST(Shell, OfPosixTakesEveryQuotedTextForOneWord) {
  for (const char* text : {"a", "a b", "a'b", "''", "$HOME", "`id`", "a\nb", "\"", "\\", "*", "-n",
                           "~", "!x", "a;b&c|d", "\xC3\xA4\xE2\x80\x98", "%x%"}) {
    std::string problem;
    EXPECT_EQ(Output("printf '%s\\n' " + *QuotedFor(TShell::Posix, text), problem),
              std::string(text) + "\n");
    EXPECT_EQ(problem, "");
  }
  EXPECT_FALSE(QuotedFor(TShell::Posix, std::string_view("a\0b", 3)));
}

TEST(Shell, OfCmdIsQuotedByItsRules) {
  for (const TCase& test : std::to_array<TCase>({
           {"a", "\"a\""},
           {"a b", "\"a b\""},
           {"a&calc&.tar", "\"a&calc&.tar\""},
           {"a^b|c<d>e(f)g", "\"a^b|c<d>e(f)g\""},
           {"it's", "\"it's\""},
           {"dir\\", "\"dir\\\\\""},
           {"dir\\\\", "\"dir\\\\\\\\\""},
           {"100%", nullptr},
           {"%PATH%", nullptr},
           {"a\"b", nullptr},
           {"a\nb", nullptr},
       })) {
    const auto quoted = QuotedFor(TShell::Cmd, test.Text);
    EXPECT_EQ(quoted.value_or("nothing"), test.Quoted ? test.Quoted : "nothing") << test.Text;
  }
}

TEST(Shell, OfPowerShellIsQuotedByItsRules) {
  for (const TCase& test : std::to_array<TCase>({
           {"a b", "'a b'"},
           {"it's", "'it''s'"},
           {"$env:PATH", "'$env:PATH'"},
           {"a;b&c`d\"e", "'a;b&c`d\"e'"},
           {"\xE2\x80\x98x\xE2\x80\x99", "'\xE2\x80\x98\xE2\x80\x98x\xE2\x80\x99\xE2\x80\x99'"},
           {"a\nb", nullptr},
       })) {
    const auto quoted = QuotedFor(TShell::PowerShell, test.Text);
    EXPECT_EQ(quoted.value_or("nothing"), test.Quoted ? test.Quoted : "nothing") << test.Text;
  }
}

TEST(Shell, RunsACommandInADirectoryOrNotAtAll) {
  std::string problem;
  EXPECT_EQ(Output(*InDirectory(TShell::Posix, "/usr/lib", "pwd; echo x"), problem),
            "/usr/lib\nx\n");
  Output(*InDirectory(TShell::Posix, "/no such", "echo x; echo y"), problem);
  EXPECT_EQ(problem, "ended with status 1");
  Output(*InDirectory(TShell::Posix, "/", "exit 3"), problem);
  EXPECT_EQ(problem, "ended with status 3");
  EXPECT_EQ(*InDirectory(TShell::Cmd, "/C:/my app", "echo x"),
            "cd /d \"C:\\my app\" || exit 1 & echo x");
  EXPECT_EQ(*InDirectory(TShell::PowerShell, "/C:/my app", "echo x"),
            "$ErrorActionPreference = 'Stop'; Set-Location -LiteralPath 'C:\\my app'; "
            "$LASTEXITCODE = 0; echo x; if ($LASTEXITCODE) { exit $LASTEXITCODE }");
  EXPECT_FALSE(InDirectory(TShell::Cmd, "/C:/100%", "echo x"));
  EXPECT_FALSE(InDirectory(TShell::None, "/", "echo x"));
}

TEST(Shell, RunsFilesByTheirNames) {
  EXPECT_EQ(*RunFileCommand(TShell::Posix, "a b"), "'./a b'");
  EXPECT_EQ(*RunFileCommand(TShell::Cmd, "a&b.exe"), "\".\\a&b.exe\"");
  EXPECT_EQ(*RunFileCommand(TShell::PowerShell, "a b.exe"), "& './a b.exe'");
}

} // namespace
} // namespace workbench
