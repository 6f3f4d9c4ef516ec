#include "tests/faults/lies.h"

#include <algorithm>

namespace faults {

const std::vector<TLie>& AllLies() {
  static const std::vector<TLie> lies{
      {"failure", TLieWay::AnswerWithout, 101, 4},
      {"denied", TLieWay::AnswerWithout, 101, 3},
      {"missing", TLieWay::AnswerWithout, 101, 2, true},
      {"end-of-file", TLieWay::AnswerWithout, 101, 1},
      {"unsupported", TLieWay::AnswerWithout, 101, 8},
      {"unknown-status", TLieWay::AnswerWithout, 101, 77},
      {"pretend", TLieWay::AnswerWithout, 101, 0, true},
      {"kind-version", TLieWay::AnswerWithout, 2, 3},
      {"kind-handle", TLieWay::AnswerWithout, 102, 4},
      {"kind-data", TLieWay::AnswerWithout, 103, 4},
      {"kind-names", TLieWay::AnswerWithout, 104, 0x7fffffff},
      {"kind-attributes", TLieWay::AnswerWithout, 105, 0},
      {"kind-extended", TLieWay::AnswerWithout, 201, 4},
      {"kind-unknown", TLieWay::AnswerWithout, 250, 4},
      {"conceal", TLieWay::AnswerAfter, 101, 4},
      {"wrong-id", TLieWay::WrongId, 0, 0x00ffffff},
      {"half", TLieWay::Half, 0, 0},
      {"twice", TLieWay::Twice, 0, 0},
      {"huge", TLieWay::WrongLength, 0, 0x7fffffff},
      {"noise", TLieWay::Noise, 0, 0},
      {"hang-up", TLieWay::HangUp, 0, 0},
  };
  return lies;
}

const TLie* FindLie(std::string_view name) {
  const auto found =
      std::ranges::find_if(AllLies(), [name](const TLie& lie) { return lie.Name == name; });
  return found == AllLies().end() ? nullptr : &*found;
}

} // namespace faults
