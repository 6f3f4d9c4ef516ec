// What came of the faults of each family.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace faults {

/// One fault and what it did.
struct TFaultResult {
  std::size_t Family = 0; ///< position among the families
  bool IsFired = false;
  std::string Fault;  ///< what was done, and where
  std::string Broken; ///< which promise was broken; empty: none
};

/// A row of the table.
struct TFamilyCount {
  std::string Name;
  std::size_t Tried = 0;
  std::size_t Fired = 0;
  std::size_t Broken = 0;
  std::string Note; ///< why the family was left out; empty: it was not
};

class TFaultTable {
public:
  /// The next family.
  void AddFamily(std::string name, std::string note = {});
  void Add(const TFaultResult& result);

  /// The row of the family that was added last.
  std::string LastRow() const;
  /// True when no promise was broken.
  bool IsClean() const;
  /// The rows, their sum, the first ones of each kind of broken promise, and faults that did not
  /// fire.
  std::string Text() const;

private:
  std::vector<TFamilyCount> FFamilies;
  std::vector<TFaultResult> FBroken;
  std::vector<TFaultResult> FNotFired;
};

} // namespace faults
