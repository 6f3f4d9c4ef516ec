#include "workbench/desktop/target/connection_watch.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

QDateTime At(int minute) {
  return QDateTime(QDate(2026, 11, 22), QTime(10, minute));
}

constexpr TConnectionSigns Rest{.HasRows = true, .Revision = 1};
constexpr TConnectionSigns Trying{.IsButtonDown = true, .HasRows = true, .Revision = 1};

TConnectionSigns Answered(std::uint64_t revision) {
  return {.IsButtonDown = true, .HasAnswers = true, .HasRows = true, .Revision = revision};
}

TEST(ConnectionWatch, SeesAnAttemptAndWhatComesOfIt) {
  TConnectionWatch watch;
  watch.Look(Rest, At(0));
  EXPECT_EQ(watch.State(), TConnectionLook::NotConnected);
  watch.Look(Trying, At(1));
  EXPECT_EQ(watch.State(), TConnectionLook::Connecting);
  EXPECT_EQ(ConnectionWords(watch, "lab-pc", At(1)).toStdString(), "Connecting to lab-pc …");
  watch.Look(Rest, At(2));
  EXPECT_EQ(watch.State(), TConnectionLook::NotConnected);
  EXPECT_EQ(ConnectionWords(watch, "lab-pc", At(2)).toStdString(), "Not connected");
}

TEST(ConnectionWatch, KeepsWhenItConnectedAndHowOldTheAnswersAre) {
  TConnectionWatch watch;
  watch.Look(Answered(2), At(5));
  EXPECT_EQ(watch.State(), TConnectionLook::Connected);
  watch.Look(Answered(2), At(9));
  EXPECT_EQ(watch.Since(), At(5));
  EXPECT_EQ(watch.AnswersOf(), At(5));
  EXPECT_TRUE(ConnectionWords(watch, "p", At(9)).contains("answers 4 minute"));
  watch.Look(Answered(3), At(12));
  EXPECT_EQ(watch.Since(), At(5));
  EXPECT_EQ(watch.AnswersOf(), At(12));
  EXPECT_TRUE(ConnectionWords(watch, "p", At(12)).contains("answers of just now"));
}

TEST(ConnectionWatch, SaysThatTheMachineWasLostUntilItAnswersAgain) {
  TConnectionWatch watch;
  watch.Look(Answered(2), At(5));
  watch.Lose("the line is dead");
  watch.Look(Answered(3), At(6));
  EXPECT_EQ(watch.State(), TConnectionLook::Lost);
  EXPECT_EQ(ConnectionWords(watch, "p", At(6)).toStdString(), "Connection lost: the line is dead");
  watch.Look(Answered(3), At(7));
  EXPECT_EQ(watch.State(), TConnectionLook::Lost);
  watch.Look(Answered(4), At(8));
  EXPECT_EQ(watch.State(), TConnectionLook::Connected);
  EXPECT_EQ(watch.Since(), At(5));
}

TEST(ConnectionWatch, IsConnectedWithoutRowsToo) {
  TConnectionWatch watch;
  watch.Look({.IsButtonDown = true, .HasRows = false, .Revision = 1}, At(0));
  EXPECT_EQ(watch.State(), TConnectionLook::Connected);
}

} // namespace
} // namespace workbench
