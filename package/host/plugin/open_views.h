// The registry of open views: a sorted list of project file names, each with its view.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

class TDeploymentWindow;

/// Names are sorted and compared ignoring case. The list looks at the views; their owner is the
/// host.
class TOpenViews {
public:
  /// Position of a name that is not there.
  static constexpr std::size_t None = static_cast<std::size_t>(-1);

  /// Position of the name.
  std::size_t Find(std::string_view fileName) const;
  /// Puts the name in its place and returns the position; a name that is there keeps its view.
  std::size_t Add(std::string_view fileName, std::weak_ptr<TDeploymentWindow> view);
  /// Takes out what stands at the position, whatever it is; a position beyond the end is ignored.
  void Delete(std::size_t position);
  /// Null when nothing stands there, or the view is gone.
  std::shared_ptr<TDeploymentWindow> View(std::size_t position) const;
  std::size_t Count() const { return FEntries.size(); }

private:
  struct TEntry {
    std::string FileName;
    std::weak_ptr<TDeploymentWindow> View;
  };

  std::vector<TEntry> FEntries;
};

} // namespace deployment
