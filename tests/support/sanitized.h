// Whether the tests run under a sanitizer, where everything takes several times as long.
#pragma once

namespace testing_support {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool IsSanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
inline constexpr bool IsSanitized = true;
#else
inline constexpr bool IsSanitized = false;
#endif
#else
inline constexpr bool IsSanitized = false;
#endif

} // namespace testing_support
