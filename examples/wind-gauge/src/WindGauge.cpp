// A wind gauge reduced to one reading: small enough to be built without the libraries of a system.
#include "Beaufort.h"

#ifdef TRACE
extern "C" {
int LastSpeed = 0; // for a debugger to look at
}
#endif

namespace {

constexpr int StandardOutput = 1;

void Write(const char* text, long size) {
#if defined(__x86_64__)
  long result = 1; // write
  asm volatile("syscall"
               : "+a"(result)
               : "D"(StandardOutput), "S"(text), "d"(size)
               : "rcx", "r11", "memory");
#else
  register long number asm("x8") = 64; // write
  register long file asm("x0") = StandardOutput;
  register const char* bytes asm("x1") = text;
  register long count asm("x2") = size;
  asm volatile("svc 0" : "+r"(file) : "r"(number), "r"(bytes), "r"(count) : "memory");
#endif
}

[[noreturn]] void Exit(long status) {
  while (true) {
#if defined(__x86_64__)
    asm volatile("syscall" : : "a"(60L), "D"(status) : "rcx", "r11");
#else
    register long number asm("x8") = 93;
    register long code asm("x0") = status;
    asm volatile("svc 0" : : "r"(number), "r"(code));
#endif
  }
}

} // namespace

// Entry point: says what a wind of 12.0 m/s is. No caller has put the stack in place for it.
#if defined(__x86_64__)
__attribute__((force_align_arg_pointer))
#endif
extern "C" void
RunProgram() {
  constexpr int Speed = 120;
#ifdef TRACE
  LastSpeed = Speed;
#endif
  char line[] = "12.0 m/s is Beaufort  0\n";
  const int number = BeaufortOf(Speed);
  line[21] = number < 10 ? ' ' : '1';
  line[22] = static_cast<char>('0' + number % 10);
  Write(line, sizeof line - 1);
  Exit(0);
}
