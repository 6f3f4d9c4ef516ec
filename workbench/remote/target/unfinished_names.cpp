#include "workbench/remote/target/unfinished_names.h"

#include "workbench/files/ended_process.h"
#include "workbench/remote/target/remote_path.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <random>
#include <unistd.h>
#include <vector>

namespace workbench {
namespace {

constexpr std::uint64_t HashStart = 0xcbf29ce484222325; // 64-bit FNV-1a
constexpr std::uint64_t HashFactor = 0x100000001b3;

std::string HashText(std::string_view text) {
  std::uint64_t hash = HashStart;
  for (const char c : text)
    hash = (hash ^ static_cast<unsigned char>(c)) * HashFactor;
  std::array<char, 17> digits{};
  std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(hash));
  return digits.data();
}

std::vector<std::string_view> Split(std::string_view text) {
  std::vector<std::string_view> parts;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find('-', start), text.size());
    parts.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return parts;
}

} // namespace

const std::string& ThisMachineMark() {
  static const std::string mark = [] {
    std::string text;
    for (const char* file : {"/etc/machine-id", "/proc/sys/kernel/random/boot_id"}) {
      std::string line;
      std::getline(std::ifstream(file) >> std::ws, line);
      text += line + "\n";
    }
    std::array<char, 256> host{};
    ::gethostname(host.data(), host.size() - 1);
    std::array<char, 64> processes{}; // a container counts its processes by itself
    if (::readlink("/proc/self/ns/pid", processes.data(), processes.size() - 1) < 0)
      processes.front() = '\0';
    return HashText(text + host.data() + processes.data());
  }();
  return mark;
}

TUnfinishedNames::TUnfinishedNames() {
  std::random_device source;
  std::array<char, 9> random{};
  std::snprintf(random.data(), random.size(), "%08x", source());
  FStart = std::string(UnfinishedPrefix) + ThisMachineMark() + "-" + std::to_string(::getpid()) +
           "-" + random.data();
}

std::string TUnfinishedNames::Next(std::string_view source) {
  return FStart + "-" + std::to_string(FCount++) + "-" + std::string(source) +
         std::string(UnfinishedSuffix);
}

std::string SourceMark(std::string_view localFile, const struct stat& status) {
  return HashText(std::string(localFile) + "\n" + std::to_string(status.st_size) + "\n" +
                  std::to_string(status.st_mtim.tv_sec) + "." +
                  std::to_string(status.st_mtim.tv_nsec));
}

std::optional<TUnfinishedName> ParseUnfinishedName(std::string_view name) {
  if (!IsUnfinishedName(name))
    return std::nullopt;
  name.remove_prefix(UnfinishedPrefix.size());
  name.remove_suffix(UnfinishedSuffix.size());
  const std::vector<std::string_view> parts = Split(name);
  if (parts.size() != 5) // machine, process, run, count, source
    return std::nullopt;
  TUnfinishedName result{std::string(parts[0]), 0, std::string(parts[4])};
  const auto [end, error] =
      std::from_chars(parts[1].data(), parts[1].data() + parts[1].size(), result.Process);
  if (error != std::errc() || end != parts[1].data() + parts[1].size() || result.Process <= 0)
    return std::nullopt;
  return result;
}

bool IsAbandoned(const TUnfinishedName& name) {
  return name.Machine == ThisMachineMark() && HasProcessEnded(name.Process);
}

} // namespace workbench
