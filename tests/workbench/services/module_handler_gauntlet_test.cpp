#include "package/host/api/toolsapi.h"
#include "workbench/services/module_handler_gauntlet.h"

#include <gtest/gtest.h>

#include <string>

namespace workbench {
namespace {

class TModule : public deployment::IOTAModule {
public:
  std::string GetFileName() const override { return "demo.vproj"; }
  bool IsProjectModule() const override { return true; }
  bool IsWithoutDeployment() const override { return false; }
  deployment::ICustomProject* GetProject() override { return nullptr; }
  int AddNotifier(std::shared_ptr<deployment::IOTAModuleNotifier>) override { return 0; }
  void RemoveNotifier(int) override {}
  void AttachHandler(std::shared_ptr<deployment::IModuleHandler>) override {}
};

class TMember : public deployment::IModuleGauntletHandler {
public:
  TMember(std::string name, std::string& calls) : FName(std::move(name)), FCalls(calls) {}
  void AttachHandler(deployment::IOTAModule&) override { FCalls += FName; }

private:
  std::string FName;
  std::string& FCalls;
};

TEST(ModuleHandlerGauntlet, CallsMembersByFallingPriorityAndThenByAge) {
  TModuleHandlerGauntlet gauntlet;
  TModule module;
  std::string calls;
  const auto middle = std::make_shared<TMember>("b", calls);
  gauntlet.AddHandler(middle, 1000);
  gauntlet.AddHandler(std::make_shared<TMember>("d", calls), -5);
  gauntlet.AddHandler(std::make_shared<TMember>("c", calls), 1000);
  gauntlet.AddHandler(std::make_shared<TMember>("a", calls), 2000);
  gauntlet.AttachHandlers(module);
  EXPECT_EQ(calls, "abcd");
  gauntlet.RemoveHandler(*middle);
  gauntlet.RemoveHandler(*middle);
  calls.clear();
  gauntlet.AttachHandlers(module);
  EXPECT_EQ(calls, "acd");
}

} // namespace
} // namespace workbench
