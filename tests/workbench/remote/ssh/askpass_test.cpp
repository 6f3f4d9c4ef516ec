#include "tests/support/environment.h"
#include "workbench/process/process_run.h"
#include "workbench/remote/ssh/askpass.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

namespace workbench {
namespace {

using testing::TEnvironment;

// "NAME=VALUE" without the name.
std::string ValueOf(const std::vector<std::string>& variables, const std::string& name) {
  for (const std::string& variable : variables) {
    if (variable.starts_with(name + "="))
      return variable.substr(name.size() + 1);
  }
  return {};
}

// The environment of a program that the client runs.
class TClient {
public:
  explicit TClient(const TAskpassListener& listener)
      : FSocket(AskpassSocketVariable, ValueOf(listener.Environment(), AskpassSocketVariable)),
        FToken(AskpassTokenVariable, ValueOf(listener.Environment(), AskpassTokenVariable)) {}

private:
  TEnvironment FSocket;
  TEnvironment FToken;
};

// What the program prints, and its status behind it.
std::string RunAskpass(const TAskpassListener& listener, const std::string& prompt,
                       const std::string& kind = {}) {
  std::vector<std::string> variables = listener.Environment();
  if (!kind.empty())
    variables.push_back("SSH_ASKPASS_PROMPT=" + kind);
  std::string text;
  const TProcessEnd end = RunProcess(
      {.Command = {AskpassProgram().string(), prompt}, .Environment = EnvironmentWith(variables)},
      nullptr, [&](std::string_view bytes) { text += bytes; }, [] { return false; });
  EXPECT_EQ(end.Errors, "");
  return text + std::to_string(end.Status);
}

// Answers every prompt, and keeps it.
TSecretQuestion Answering(std::string& asked, const std::string& answer) {
  return [&asked, answer](const std::string& prompt, const TIsCancelled& isOver) {
    EXPECT_FALSE(isOver());
    asked = prompt;
    return std::optional(answer);
  };
}

TEST(Askpass, PassesTheQuestionOnAndTheAnswerBack) {
  std::string asked;
  const TAskpassListener listener(Answering(asked, "se cret\xC3\xA9"));
  const TClient client(listener);
  EXPECT_EQ(AskThroughSocket("Passphrase: "), "se cret\xC3\xA9");
  EXPECT_EQ(asked, "Passphrase: ");
  EXPECT_EQ(AskThroughSocket("Again\x1b[2J: "), "se cret\xC3\xA9");
  EXPECT_EQ(asked, "Again\\x1B[2J: ");
}

TEST(Askpass, TellsAnEmptyAnswerFromNone) {
  std::string asked;
  const TAskpassListener empty(Answering(asked, ""));
  {
    const TClient client(empty);
    EXPECT_EQ(AskThroughSocket("?"), "");
  }
  const TAskpassListener none(
      [](const std::string&, const TIsCancelled&) { return std::optional<std::string>(); });
  const TClient client(none);
  EXPECT_EQ(AskThroughSocket("?"), std::nullopt);
}

TEST(Askpass, HasNoAnswerWithoutThePlaceToAsk) {
  EXPECT_EQ(AskThroughSocket("?"), std::nullopt);
}

TEST(Askpass, AnswersNobodyWithoutTheToken) {
  std::string asked;
  const TAskpassListener listener(Answering(asked, "secret"));
  const TClient client(listener);
  for (const std::string token : {"", "0123456789abcdef0123456789abcdef"}) {
    const TEnvironment wrong(AskpassTokenVariable, token);
    EXPECT_EQ(AskThroughSocket("?"), std::nullopt);
  }
  EXPECT_EQ(asked, "");
}

TEST(Askpass, HasNoAnswerWhereNobodyListens) {
  auto listener = std::make_unique<TAskpassListener>(
      [](const std::string&, const TIsCancelled&) { return std::optional<std::string>("x"); });
  const TClient client(*listener);
  listener.reset();
  EXPECT_EQ(AskThroughSocket("?"), std::nullopt);
  const TEnvironment nowhere(AskpassSocketVariable, "/");
  EXPECT_EQ(AskThroughSocket("?"), std::nullopt);
}

TEST(Askpass, EndsAQuestionThatIsOver) {
  std::atomic<bool> isAsked = false;
  auto listener =
      std::make_unique<TAskpassListener>([&](const std::string&, const TIsCancelled& isOver) {
        isAsked = true;
        while (!isOver())
          std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return std::optional<std::string>();
      });
  const TClient client(*listener);
  std::thread asking([] { EXPECT_EQ(AskThroughSocket("?"), std::nullopt); });
  while (!isAsked)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  listener.reset();
  asking.join();
}

TEST(Askpass, EndsAQuestionWhoseClientWentAway) {
  std::atomic<bool> isOverAtLast = false;
  std::atomic<bool> isAsked = false;
  const TAskpassListener listener([&](const std::string&, const TIsCancelled& isOver) {
    isAsked = true;
    while (!isOver())
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    isOverAtLast = true;
    return std::optional<std::string>();
  });
  RunProcess(
      {.Command = {AskpassProgram().string(), "?"},
       .Environment = EnvironmentWith(listener.Environment())},
      nullptr, [](std::string_view) {}, [&] { return isAsked.load(); });
  while (!isOverAtLast)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

TEST(Askpass, SurvivesAQuestionThatThrows) {
  const TAskpassListener listener(
      [](const std::string&, const TIsCancelled&) -> std::optional<std::string> {
        throw std::runtime_error("the window is gone");
      });
  const TClient client(listener);
  EXPECT_EQ(AskThroughSocket("?"), std::nullopt);
  EXPECT_EQ(AskThroughSocket("?"), std::nullopt);
}

TEST(AskpassProgram, PrintsTheAnswerForTheClient) {
  std::string asked;
  {
    const TAskpassListener listener(Answering(asked, "secret"));
    EXPECT_EQ(RunAskpass(listener, "Passphrase: "), "secret\n0");
  }
  EXPECT_EQ(asked, "Passphrase: ");
}

TEST(AskpassProgram, FailsWhereThereIsNoAnswer) {
  const TAskpassListener listener(
      [](const std::string&, const TIsCancelled&) { return std::optional<std::string>(); });
  EXPECT_EQ(RunAskpass(listener, "Passphrase: "), "1");
}

TEST(AskpassProgram, TakesOnlyAWholeYesForAYes) {
  std::string asked;
  {
    const TAskpassListener empty(Answering(asked, ""));
    EXPECT_EQ(RunAskpass(empty, "Allow it?", "confirm"), "1");
  }
  EXPECT_EQ(asked, "Allow it? (yes/no) ");
  const TAskpassListener yes(Answering(asked, "yes"));
  EXPECT_EQ(RunAskpass(yes, "Allow it?", "confirm"), "yes\n0");
}

TEST(AskpassProgram, AsksNothingWhenTheClientOnlyTells) {
  std::string asked;
  const TAskpassListener listener(Answering(asked, "secret"));
  EXPECT_EQ(RunAskpass(listener, "Touch the key", "none"), "\n0");
  EXPECT_EQ(asked, "");
}

TEST(Wipe, LeavesNothing) {
  std::string secret = "a passphrase that does not fit into the object itself";
  const char* place = secret.data();
  Wipe(secret);
  EXPECT_TRUE(secret.empty());
  EXPECT_EQ(place, secret.data());
  EXPECT_EQ(std::string(place, 10), std::string(10, '\0'));
}

} // namespace
} // namespace workbench
