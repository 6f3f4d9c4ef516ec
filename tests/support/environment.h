// Sets environment variables for one test and puts the old ones back.
#pragma once

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace workbench::testing {

/// Variables of the environment that have other values as long as it lives; then they are as
/// before.
class TEnvironment {
public:
  TEnvironment() = default;
  TEnvironment(const std::string& name, const std::string& value) { Set(name, value); }
  TEnvironment(const TEnvironment&) = delete;
  TEnvironment& operator=(const TEnvironment&) = delete;
  ~TEnvironment() {
    for (const auto& [name, value] : FBefore)
      Apply(name, value);
  }
  /// Nothing: unset.
  void Set(const std::string& name, const std::optional<std::string>& value) {
    const char* before = std::getenv(name.c_str());
    FBefore.emplace(name, before ? std::optional<std::string>(before) : std::nullopt);
    Apply(name, value);
  }

private:
  static void Apply(const std::string& name, const std::optional<std::string>& value) {
    if (value)
      setenv(name.c_str(), value->c_str(), 1);
    else
      unsetenv(name.c_str());
  }

  std::map<std::string, std::optional<std::string>> FBefore;
};

} // namespace workbench::testing
