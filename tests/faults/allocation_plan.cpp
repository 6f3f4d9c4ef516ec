#include "tests/faults/allocation_plan.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>

namespace faults {

TSharedAllocationPlan::TSharedAllocationPlan(std::uint64_t failAt)
    : FFile("/dev/shm/fault-allocation-XXXXXX") {
  const int file = ::mkostemp(FFile.data(), O_CLOEXEC);
  void* memory = MAP_FAILED;
  if (file >= 0 && ::ftruncate(file, sizeof(TAllocationPlan)) == 0)
    memory = ::mmap(nullptr, sizeof(TAllocationPlan), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  ::close(file);
  if (memory == MAP_FAILED)
    throw std::system_error(errno, std::generic_category(), "sharing memory with a program");
  FPlan = new (memory) TAllocationPlan;
  FPlan->FailAt = failAt;
}

TSharedAllocationPlan::~TSharedAllocationPlan() {
  ::munmap(FPlan, sizeof(TAllocationPlan));
  ::unlink(FFile.c_str());
}

std::vector<std::string> TSharedAllocationPlan::Environment() const {
  return {std::string(AllocationPlanVariable) + "=" + FFile,
          std::string("LD_PRELOAD=") + FAILING_ALLOCATOR};
}

} // namespace faults
