#include "package/reconcile/deploy_module_reconciler.h"
#include "tests/support/memory_host.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

TEST(DeployModuleReconciler, TakesEmptyNamesFromTheProject) {
  TMemoryHost host;
  TMemoryProject project;
  project.CurrentPlatform = "Android";
  project.CurrentConfiguration = "Release";
  const TDeployModuleReconciler current(project, "", "", false, host);
  EXPECT_EQ(current.Platform(), "Android");
  EXPECT_EQ(current.Configuration(), "Release");
  EXPECT_FALSE(current.ReconcilesInternally());
  const TDeployModuleReconciler given(project, "Win32", "Debug", true, host);
  EXPECT_EQ(given.Platform(), "Win32");
  EXPECT_EQ(given.Configuration(), "Debug");
  EXPECT_TRUE(given.ReconcilesInternally());
  EXPECT_EQ(&given.Project(), &project);
  EXPECT_EQ(&given.Services(), &host);
}

TEST(DeployModuleReconciler, AnswersReconciledAtTheEndOfTheChain) {
  TMemoryHost host;
  TMemoryProject project;
  EXPECT_EQ(TDeployModuleReconciler(project, "", "", false, host).Reconcile(),
            TReconcileResult::Reconciled);
}

} // namespace
} // namespace deployment
