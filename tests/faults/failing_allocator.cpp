// Put in front of the allocator of a program: counts what it is asked for, and has no memory once.
#include "tests/faults/allocation_plan.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

extern "C" {
// The allocator of the C library under the names by which it calls itself.
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
}

namespace {

faults::TAllocationPlan* Plan = nullptr;

__attribute__((constructor)) void FindPlan() {
  const char* name = std::getenv(faults::AllocationPlanVariable);
  const int file = name ? ::open(name, O_RDWR | O_CLOEXEC) : -1;
  // Programs that this one starts have their memory.
  ::unsetenv(faults::AllocationPlanVariable);
  ::unsetenv("LD_PRELOAD");
  if (file < 0)
    return;
  void* memory =
      ::mmap(nullptr, sizeof(faults::TAllocationPlan), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  ::close(file);
  if (memory != MAP_FAILED)
    Plan = static_cast<faults::TAllocationPlan*>(memory);
}

bool Fails() {
  if (!Plan || !Plan->IsArmed)
    return false;
  if (++Plan->Count != Plan->FailAt)
    return false;
  Plan->HasFailed = true;
  return true;
}

} // namespace

extern "C" {
void* malloc(std::size_t size) {
  return Fails() ? nullptr : __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
  return Fails() ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) {
  return Fails() ? nullptr : __libc_realloc(memory, size);
}
}
