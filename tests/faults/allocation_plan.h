// Which allocation of a program finds no memory: shared between the tracer and the allocator that
// is put into the program.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace faults {

/// Variable that names the file which both map.
inline constexpr const char* AllocationPlanVariable = "FAULT_ALLOCATION_PLAN";

struct TAllocationPlan {
  std::atomic<bool> IsArmed = false;
  std::atomic<std::uint64_t> Count = 0;  ///< allocations since it was armed
  std::atomic<std::uint64_t> FailAt = 0; ///< 0: none
  std::atomic<bool> HasFailed = false;
};

/// The tracer's side. The file goes with the object.
class TSharedAllocationPlan {
public:
  explicit TSharedAllocationPlan(std::uint64_t failAt);
  ~TSharedAllocationPlan();
  TSharedAllocationPlan(const TSharedAllocationPlan&) = delete;
  TSharedAllocationPlan& operator=(const TSharedAllocationPlan&) = delete;

  TAllocationPlan& Plan() { return *FPlan; }
  /// Variables for the program.
  std::vector<std::string> Environment() const;

private:
  std::string FFile;
  TAllocationPlan* FPlan = nullptr;
};

} // namespace faults
