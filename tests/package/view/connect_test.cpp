// Connecting: a thread of its own, whose outcome comes back on the main thread.
#include "package/host/api/file_columns.h"
#include "tests/package/view/frame_world.h"

#include <atomic>
#include <future>
#include <stdexcept>
#include <thread>

namespace deployment {
namespace {

class Connecting : public FrameWorld {
protected:
  Connecting() {
    NeedProfile();
    Add("a");
    Profiles.Local[FullName("a")] = TimeOf(10);
    Profiles.Remote["App\\a"] = TimeOf(10);
    Profiles.OnConnect = [this](const IOTARemoteProfile& profile, std::string& message) {
      ++Attempts;
      ConnectedTo = profile.GetName();
      OffMainThread = std::this_thread::get_id() != MainThread;
      message = Message;
      return Gate.get_future().get();
    };
  }
  ~Connecting() override {
    if (!Opened)
      Gate.set_value(false);
    Threads->Join();
  }
  /// Lets the attempt that waits end.
  void Answer(bool connected) {
    Opened = true;
    Gate.set_value(connected);
  }
  /// Lets further attempts succeed at once.
  void AnswerAtOnce(bool connected) {
    Profiles.OnConnect = [this, connected](const IOTARemoteProfile&, std::string& message) {
      ++Attempts;
      message = Message;
      return connected;
    };
  }
  bool IsDown() { return Button("tbConnect").GetDown(); }
  std::string Status() { return Text("a", file_column::RemoteStatus); }
  IOTARemoteProfileNotifier& Notifier() { return *Profiles.Notifiers.begin()->second; }

  const std::thread::id MainThread = std::this_thread::get_id();
  std::promise<bool> Gate;
  bool Opened = false;
  std::atomic<int> Attempts = 0;
  std::string ConnectedTo;
  std::string Message;
  bool OffMainThread = false;
};

TEST_F(Connecting, HappensOnAThreadOfItsOwn) {
  Open();
  Choose("Debug", "Win32");
  EXPECT_TRUE(Press("tbConnect"));
  EXPECT_TRUE(IsDown());
  Answer(true);
  FinishConnect();
  EXPECT_TRUE(OffMainThread);
  EXPECT_EQ(ConnectedTo, "lab");
  EXPECT_TRUE(IsDown());
  EXPECT_EQ(Status(), "Same");
}

TEST_F(Connecting, ShowsNoStatusBeforeTheAttemptEnds) {
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  Frame->RefreshFiles();
  EXPECT_EQ(Status(), "Not Connected");
  EXPECT_TRUE(Profiles.Asked.empty());
  Answer(true);
  FinishConnect();
  EXPECT_EQ(Status(), "Same");
}

TEST_F(Connecting, HidesAnOldStatusWhileItConnectsAnew) {
  AnswerAtOnce(true);
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  FinishConnect();
  EXPECT_EQ(Status(), "Same");
  Choose("Debug", "Win32");
  EXPECT_EQ(Status(), "Not Connected");
  FinishConnect();
  EXPECT_EQ(Status(), "Same");
  EXPECT_EQ(Attempts, 2);
}

TEST_F(Connecting, KeepsTheButtonDownAndStartsNothingOnASecondPress) {
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  EXPECT_TRUE(Press("tbConnect"));
  EXPECT_TRUE(IsDown());
  Answer(true);
  FinishConnect();
  EXPECT_EQ(Attempts, 1);
  EXPECT_EQ(Status(), "Same");
}

TEST_F(Connecting, EndsWhenTheButtonIsReleased) {
  AnswerAtOnce(true);
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  FinishConnect();
  Press("tbConnect");
  EXPECT_FALSE(IsDown());
  EXPECT_EQ(Status(), "Not Connected");
}

TEST_F(Connecting, ReleasesTheButtonAndSaysWhyWhenItFails) {
  AnswerAtOnce(false);
  Message = "The host does not answer.";
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  FinishConnect();
  EXPECT_FALSE(IsDown());
  ASSERT_EQ(Dialogs.Messages.size(), 1U);
  EXPECT_EQ(Dialogs.Messages[0].Text, "The host does not answer.");
  EXPECT_EQ(Dialogs.Messages[0].Buttons, std::vector{TMessageAnswer::OK});
  EXPECT_EQ(Status(), "Not Connected");
}

TEST_F(Connecting, SaysNothingWithoutAMessage) {
  AnswerAtOnce(false);
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  FinishConnect();
  EXPECT_FALSE(IsDown());
  EXPECT_TRUE(Dialogs.Messages.empty());
}

TEST_F(Connecting, FailsWithAHostThatThrows) {
  Profiles.OnConnect = [](const IOTARemoteProfile&, std::string&) -> bool {
    throw std::runtime_error("the key is refused");
  };
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  FinishConnect();
  EXPECT_FALSE(IsDown());
  EXPECT_EQ(Dialogs.Messages.at(0).Text, "the key is refused");
}

TEST_F(Connecting, FailsWithoutAnAssignedProfileOrWithOneThatIsGone) {
  AnswerAtOnce(true);
  Open();
  Choose("Debug", "Win32");
  Module->Platforms.Profiles.clear();
  Press("tbConnect");
  FinishConnect();
  EXPECT_FALSE(IsDown());
  Module->Platforms.Profiles["Win32"] = "gone";
  Press("tbConnect");
  FinishConnect();
  EXPECT_FALSE(IsDown());
  EXPECT_EQ(Attempts, 0);
  EXPECT_TRUE(Dialogs.Messages.empty());
}

TEST_F(Connecting, IsDroppedWhenAProfileChanges) {
  AnswerAtOnce(true);
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  FinishConnect();
  Profiles.Asked.clear();
  Notifier().RemoteProfileChanged(*Profiles.Profiles["lab"]);
  EXPECT_FALSE(IsDown());
  EXPECT_EQ(Status(), "Not Connected");
  EXPECT_TRUE(Profiles.Asked.empty());
}

TEST_F(Connecting, IsDroppedWithItsRowsWhenAProfileGoes) {
  AnswerAtOnce(true);
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  FinishConnect();
  Notifier().RemoteProfileRemoved(*Profiles.Profiles["lab"]);
  EXPECT_FALSE(IsDown());
  EXPECT_TRUE(Nodes().empty());
  Frame->RefreshFiles();
  EXPECT_EQ(Status(), "Not Connected");
}

TEST_F(Connecting, IsDiscardedWhenAProfileChangesMeanwhile) {
  std::promise<bool> second;
  AnswerAtOnce(true);
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  FinishConnect();
  Profiles.OnConnect = [&](const IOTARemoteProfile&, std::string& message) {
    message = "not to be seen";
    return second.get_future().get();
  };
  Choose("Debug", "Win32");
  Notifier().RemoteProfileChanged(*Profiles.Profiles["lab"]);
  EXPECT_FALSE(IsDown());
  second.set_value(true);
  FinishConnect();
  EXPECT_FALSE(IsDown());
  EXPECT_EQ(Status(), "Not Connected");
  EXPECT_TRUE(Dialogs.Messages.empty());
}

TEST_F(Connecting, DiscardsTheFirstAttemptAfterAProfileChange) {
  AnswerAtOnce(true);
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  FinishConnect();
  Notifier().RemoteProfileChanged(*Profiles.Profiles["lab"]);
  Press("tbConnect");
  FinishConnect();
  EXPECT_FALSE(IsDown());
  Press("tbConnect");
  FinishConnect();
  EXPECT_TRUE(IsDown());
  EXPECT_EQ(Status(), "Same");
}

TEST_F(Connecting, GoesOnWhenAProfileChangesBeforeTheFirstConnection) {
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  Notifier().RemoteProfileChanged(*Profiles.Profiles["lab"]);
  EXPECT_TRUE(IsDown());
  Answer(true);
  FinishConnect();
  EXPECT_EQ(Status(), "Same");
}

TEST_F(Connecting, OutlivesAViewThatIsClosedMeanwhile) {
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  Frame.reset();
  Answer(true);
  Threads->Join();
  EXPECT_EQ(Controls.MainThread().RunPosted(), 1U);
  EXPECT_EQ(Attempts, 1);
}

TEST_F(Connecting, IsForgottenByAViewThatIsClosedBeforeTheOutcomeIsRead) {
  AnswerAtOnce(true);
  Open();
  Choose("Debug", "Win32");
  Press("tbConnect");
  Threads->Join();
  Frame.reset();
  EXPECT_EQ(Controls.MainThread().RunPosted(), 1U);
}

TEST_F(Connecting, CanBeTriedAgainAndAgain) {
  AnswerAtOnce(true);
  Open();
  Choose("Debug", "Win32");
  for (int i = 0; i < 10; ++i) {
    Press("tbConnect");
    FinishConnect();
    EXPECT_EQ(Status(), "Same");
    Press("tbConnect");
  }
  EXPECT_EQ(Attempts, 10);
}

} // namespace
} // namespace deployment
