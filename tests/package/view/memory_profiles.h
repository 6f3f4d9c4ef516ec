// Remote profiles for tests of the view: files with time stamps on both sides.
#pragma once

#include "package/host/api/platformapi.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

struct TMemoryProfile : IOTARemoteProfile {
  explicit TMemoryProfile(std::string name, const IAndroidSDK* sdk = nullptr)
      : Name(std::move(name)), SDK(sdk) {}
  std::string GetName() const override { return Name; }
  std::string GetPlatform() const override { return "Win32"; }
  const IAndroidSDK* GetAndroidSDK() const override { return SDK; }
  std::string Name;
  const IAndroidSDK* SDK;
};

struct TMemoryAndroidSDK : IAndroidSDK {
  std::string GetName() const override { return "ndk"; }
  std::string GetPlatform() const override { return "Android"; }
  std::string GetNDKBasePath() const override { return NDKBasePath; }
  std::string GetDebuggerServerPath() const override { return {}; }
  std::string NDKBasePath;
};

inline TFileTime TimeOf(int seconds) {
  return TFileTime(std::chrono::seconds(seconds));
}

class TMemoryProfiles : public IOTARemoteProfileServices {
public:
  using TTimes = std::map<std::string, TFileTime, std::less<>>;

  std::shared_ptr<IOTARemoteProfile> FindProfile(std::string_view name) const override {
    const auto found = Profiles.find(name);
    return found == Profiles.end() ? nullptr : found->second;
  }
  std::string GetDefaultProfileName(std::string_view platform) const override {
    const auto found = Defaults.find(platform);
    return found == Defaults.end() ? std::string() : found->second;
  }
  bool CreateAndAssignProfile(ICustomProject&, std::string_view platform) override {
    Log.push_back(std::string("create for ").append(platform));
    return OnCreate && OnCreate();
  }
  void BeginRemoteQueries(const IOTARemoteProfile& profile) override {
    Log.push_back("begin " + profile.GetName());
  }
  void EndRemoteQueries(const IOTARemoteProfile& profile) override {
    Log.push_back("end " + profile.GetName());
  }
  std::optional<TFileTime> GetRemoteFileTime(const IOTARemoteProfile&,
                                             std::string_view name) override {
    Asked.emplace_back(name);
    return Find(Remote, name);
  }
  bool IsRemoteFileKnown(const IOTARemoteProfile&, std::string_view name) override {
    return !Unknown.contains(name);
  }
  std::optional<TFileTime> GetLocalFileTime(const IOTARemoteProfile&,
                                            std::string_view name) override {
    return Find(Local, name);
  }
  bool Connect(const IOTARemoteProfile& profile, std::string& message) override {
    return OnConnect(profile, message);
  }
  void Deploy(ICustomProject&, std::string_view platform, std::string_view configuration,
              bool final) override {
    Log.push_back(std::string("deploy ").append(configuration).append("|").append(platform) +
                  (final ? " final" : ""));
  }
  int AddNotifier(std::shared_ptr<IOTARemoteProfileNotifier> notifier) override {
    Notifiers[++FLast] = std::move(notifier);
    return FLast;
  }
  void RemoveNotifier(int index) override { Notifiers.erase(index); }

  std::map<std::string, std::shared_ptr<TMemoryProfile>, std::less<>> Profiles;
  std::map<std::string, std::string, std::less<>> Defaults; ///< by platform
  TTimes Remote;                                            ///< by remote file name
  std::set<std::string, std::less<>> Unknown;               ///< that nothing is said about
  TTimes Local;                                             ///< by full path
  std::vector<std::string> Asked;                           ///< remote files that were looked at
  std::vector<std::string> Log;
  std::function<bool()> OnCreate;
  /// Runs on the thread that connects.
  std::function<bool(const IOTARemoteProfile&, std::string&)> OnConnect =
      [](const IOTARemoteProfile&, std::string&) { return true; };
  std::map<int, std::shared_ptr<IOTARemoteProfileNotifier>> Notifiers;

private:
  static std::optional<TFileTime> Find(const TTimes& times, std::string_view name) {
    const auto found = times.find(name);
    return found == times.end() ? std::nullopt : std::optional(found->second);
  }

  int FLast = 0;
};

} // namespace deployment
