// What a lying server does.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace faults {

enum class TLieWay {
  AnswerWithout, ///< the request is not carried out, and answered with a packet of that kind
  AnswerAfter,   ///< it is carried out, and answered with that status
  WrongId,       ///< the answer is for a request of that number
  Half,          ///< half of the answer, and the end
  Twice,         ///< the answer comes twice
  WrongLength,   ///< the answer says that it is that long, and the conversation ends
  Noise,         ///< a text that is no packet, and the end
  HangUp,        ///< the end, after the request was carried out
};

struct TLie {
  const char* Name;
  TLieWay Way;
  std::uint8_t Kind;   ///< of the packet
  std::uint32_t Value; ///< status, number or length
  /// It says "done" of what was not done, or "not there" of what is: no client can know at once.
  bool IsPlausible = false;
};

const std::vector<TLie>& AllLies();
/// Null for an unknown name.
const TLie* FindLie(std::string_view name);

} // namespace faults
