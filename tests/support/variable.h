// A variable of the environment that is set for a while.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace workbench::testing {

/// Has a value as long as it lives; then it is as before.
class TVariable {
public:
  TVariable(const char* name, const std::string& value) : FName(name) {
    if (const char* before = std::getenv(name))
      FBefore = before;
    ::setenv(name, value.c_str(), 1);
  }
  ~TVariable() {
    if (FBefore)
      ::setenv(FName, FBefore->c_str(), 1);
    else
      ::unsetenv(FName);
  }
  TVariable(const TVariable&) = delete;
  TVariable& operator=(const TVariable&) = delete;

private:
  const char* FName;
  std::optional<std::string> FBefore;
};

} // namespace workbench::testing
