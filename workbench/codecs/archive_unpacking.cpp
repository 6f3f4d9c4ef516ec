#include "workbench/codecs/archive_unpacking.h"

#include "workbench/archive/member_rules.h"
#include "workbench/files/file_descriptor.h"
#include "workbench/text/visible_text.h"

#include <archive.h>
#include <archive_entry.h>
#include <clocale>
#include <fcntl.h>
#include <locale.h>
#include <memory>
#include <sys/stat.h>
#include <unordered_map>

namespace workbench {
namespace {

using TKind = TArchiveMember::TKind;

constexpr std::size_t BlockSize = std::size_t(64) * 1024;
constexpr mode_t RightsMask = 0777;

// Names of members are UTF-8, whatever the locale of the program is.
class TUtf8Names {
public:
  TUtf8Names() : FLocale(::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {
    if (FLocale)
      FBefore = ::uselocale(FLocale);
  }
  ~TUtf8Names() {
    if (FLocale) {
      ::uselocale(FBefore);
      ::freelocale(FLocale);
    }
  }
  TUtf8Names(const TUtf8Names&) = delete;
  TUtf8Names& operator=(const TUtf8Names&) = delete;

private:
  locale_t FLocale;
  locale_t FBefore = nullptr;
};

struct TFreeArchive {
  void operator()(archive* opened) const { ::archive_read_free(opened); }
};
using TArchive = std::unique_ptr<archive, TFreeArchive>;

[[noreturn]] void RefuseMember(const std::string& name, const std::string& reason) {
  throw TArchiveError("\"" + Visible(name) + "\" in it " + reason);
}

// None of the filters that would run a program.
TArchive Open(const std::filesystem::path& file) {
  TArchive opened(::archive_read_new());
  if (!opened)
    throw std::bad_alloc();
  ::archive_read_support_filter_gzip(opened.get());
  ::archive_read_support_filter_bzip2(opened.get());
  ::archive_read_support_filter_xz(opened.get());
  ::archive_read_support_filter_lzma(opened.get());
  ::archive_read_support_filter_zstd(opened.get());
  ::archive_read_support_filter_lz4(opened.get());
  ::archive_read_support_filter_compress(opened.get());
  ::archive_read_support_format_tar(opened.get());
  ::archive_read_support_format_zip(opened.get());
  if (::archive_read_open_filename(opened.get(), file.c_str(), BlockSize) != ARCHIVE_OK)
    throw TArchiveError("it cannot be read: " + SaidText(::archive_error_string(opened.get())));
  return opened;
}

class TUnpacking {
public:
  TUnpacking(TArchive opened, const std::filesystem::path& directory,
             const std::function<bool()>& isCancelled, const TArchiveLimits& limits)
      : FArchive(std::move(opened)), FDirectory(directory), FIsCancelled(isCancelled),
        FLimits(limits) {}

  std::vector<TArchiveMember> Run() {
    for (archive_entry* entry = nullptr; NextHeader(entry);)
      Take(entry);
    CheckMembersTogether(FMembers);
    return std::move(FMembers);
  }

private:
  void StopWhenCancelled() const {
    if (FIsCancelled())
      throw TArchiveError("the run was interrupted");
  }

  bool NextHeader(archive_entry*& entry) {
    StopWhenCancelled();
    const int result = ::archive_read_next_header(FArchive.get(), &entry);
    if (result != ARCHIVE_EOF && result < ARCHIVE_WARN)
      RaiseReadError();
    return result != ARCHIVE_EOF;
  }

  [[noreturn]] void RaiseReadError() {
    const char* reason = ::archive_error_string(FArchive.get());
    throw TArchiveError("it cannot be read: " + SaidText(reason ? reason : "it is damaged"));
  }

  void Take(archive_entry* entry) {
    const char* stored = ::archive_entry_pathname(entry);
    if (!stored)
      throw TArchiveError("a name in it cannot be read");
    TArchiveMember member{.Name = MemberName(stored)};
    if (member.Name.empty())
      return; // the directory itself
    const char* hardLink = ::archive_entry_hardlink(entry);
    const auto kind = ::archive_entry_filetype(entry);
    if (hardLink) {
      member.LocalFile = FileUnder(member.Name, hardLink);
    } else if (kind == AE_IFREG) {
      member.LocalFile = Store(entry, member.Name);
    } else if (kind == AE_IFLNK) {
      const char* text = ::archive_entry_symlink(entry);
      member.LinkText = text ? text : "";
      member.Kind = TKind::Link;
    } else if (kind == AE_IFDIR) {
      member.Kind = TKind::Directory;
    } else {
      RefuseMember(member.Name, "is no file, directory or link");
    }
    Keep(std::move(member));
  }

  // The last one of a name counts, as it does for whoever unpacks one after the other.
  void Keep(TArchiveMember member) {
    const auto [known, isNew] = FIndex.emplace(member.Name, FMembers.size());
    if (!isNew) {
      FMembers[known->second] = std::move(member);
      return;
    }
    if (FMembers.size() == FLimits.Members)
      throw TArchiveError("it has more than " + std::to_string(FLimits.Members) + " members");
    FMembers.push_back(std::move(member));
  }

  std::filesystem::path FileUnder(const std::string& name, const char* linked) const {
    const auto found = FIndex.find(MemberName(linked));
    if (found == FIndex.end() || FMembers[found->second].Kind != TKind::File)
      RefuseMember(name, "is a second name of what is no file in it");
    return FMembers[found->second].LocalFile;
  }

  std::filesystem::path Store(archive_entry* entry, const std::string& name) {
    std::filesystem::path path = FDirectory / std::to_string(FStored++);
    TFileDescriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!file.IsOpen())
      ThrowSystemError("unpacking it here");
    std::uint64_t size = 0;
    while (WriteBlock(file, name, size)) {
    }
    if (::archive_entry_size_is_set(entry))
      Grow(size, static_cast<std::uint64_t>(::archive_entry_size(entry)));
    // The end of a file with holes may be one.
    if (::ftruncate(file.Get(), static_cast<off_t>(size)) != 0 ||
        ::fchmod(file.Get(), (::archive_entry_perm(entry) & RightsMask) | S_IRUSR) != 0)
      ThrowSystemError("unpacking it here");
    const timespec now{0, UTIME_NOW};
    const timespec stored{::archive_entry_mtime(entry), ::archive_entry_mtime_nsec(entry)};
    const timespec times[2] = {now, ::archive_entry_mtime_is_set(entry) ? stored : now};
    if (::futimens(file.Get(), times) != 0 || ::close(file.Release()) != 0)
      ThrowSystemError("unpacking it here");
    return path;
  }

  // False at the end of the member.
  bool WriteBlock(const TFileDescriptor& file, const std::string& name, std::uint64_t& size) {
    StopWhenCancelled();
    const void* block = nullptr;
    std::size_t count = 0;
    la_int64_t offset = 0;
    const int result = ::archive_read_data_block(FArchive.get(), &block, &count, &offset);
    if (result == ARCHIVE_EOF)
      return false;
    if (result < ARCHIVE_WARN)
      RaiseReadError();
    if (offset < 0)
      RefuseMember(name, "is damaged");
    Grow(size, static_cast<std::uint64_t>(offset) + count);
    std::size_t done = 0;
    while (done < count) {
      const ssize_t written = ::pwrite(file.Get(), static_cast<const char*>(block) + done,
                                       count - done, offset + static_cast<off_t>(done));
      if (written < 0 && errno != EINTR)
        ThrowSystemError("unpacking it here");
      done += written > 0 ? static_cast<std::size_t>(written) : 0;
    }
    return true;
  }

  // The file is known to be that long at least.
  void Grow(std::uint64_t& size, std::uint64_t length) {
    if (length <= size)
      return;
    if (length > FLimits.Bytes || FBytes > FLimits.Bytes - (length - size))
      throw TArchiveError("it has more than " + std::to_string(FLimits.Bytes) +
                          " bytes when it is unpacked");
    FBytes += length - size;
    size = length;
  }

  TArchive FArchive;
  const std::filesystem::path& FDirectory;
  const std::function<bool()>& FIsCancelled;
  const TArchiveLimits& FLimits;
  std::vector<TArchiveMember> FMembers;
  std::unordered_map<std::string, std::size_t> FIndex; // by name
  std::size_t FStored = 0;                             // files
  std::uint64_t FBytes = 0;
};

} // namespace

std::vector<TArchiveMember> UnpackByLibrary(const std::filesystem::path& archive,
                                            const std::filesystem::path& directory,
                                            const std::function<bool()>& isCancelled,
                                            const TArchiveLimits& limits) {
  const TUtf8Names names;
  return TUnpacking(Open(archive), directory, isCancelled, limits).Run();
}

} // namespace workbench
