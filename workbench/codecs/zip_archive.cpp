#include "workbench/codecs/zip_archive.h"

#include "workbench/archive/unpacked_archive.h"
#include "workbench/files/file_descriptor.h"
#include "workbench/files/sha256.h"

#include <archive.h>
#include <archive_entry.h>
#include <fcntl.h>
#include <memory>
#include <unistd.h>
#include <vector>

namespace workbench {
namespace {

constexpr std::size_t ContentBlock = std::size_t(256) * 1024;
constexpr std::time_t FirstZipTime = 315'532'800; // 1980, before which the format knows no time
constexpr unsigned ContentRights = 0644;

struct TFreeEntry {
  void operator()(archive_entry* entry) const { ::archive_entry_free(entry); }
};

struct TFreeWriter {
  void operator()(archive* writer) const { ::archive_write_free(writer); }
};

class TZipArchive final : public IContentArchive {
public:
  explicit TZipArchive(const std::filesystem::path& file) : FArchive(::archive_write_new()) {
    if (!FArchive || ::archive_write_set_format_zip(FArchive.get()) != ARCHIVE_OK ||
        ::archive_write_open_filename(FArchive.get(), file.c_str()) != ARCHIVE_OK)
      Raise();
  }

  void Add(const std::filesystem::path& file, std::uint64_t size, const std::string& hash) override;
  void Finish() override;

private:
  [[noreturn]] void Raise() const {
    const char* reason = FArchive ? ::archive_error_string(FArchive.get()) : nullptr;
    throw TArchiveError(std::string("the archive cannot be written: ") +
                        (reason ? reason : "there is not enough memory"));
  }

  std::unique_ptr<archive, TFreeWriter> FArchive;
};

void TZipArchive::Add(const std::filesystem::path& file, std::uint64_t size,
                      const std::string& hash) {
  const TFileDescriptor source(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!source.IsOpen())
    throw TArchiveError(file.string() + " cannot be read: " + SystemReason(errno));
  const std::unique_ptr<archive_entry, TFreeEntry> entry(::archive_entry_new());
  ::archive_entry_set_pathname(entry.get(), hash.c_str());
  ::archive_entry_set_filetype(entry.get(), AE_IFREG);
  ::archive_entry_set_perm(entry.get(), ContentRights);
  ::archive_entry_set_size(entry.get(), static_cast<la_int64_t>(size));
  ::archive_entry_set_mtime(entry.get(), FirstZipTime, 0);
  if (::archive_write_header(FArchive.get(), entry.get()) != ARCHIVE_OK)
    Raise();
  std::vector<char> block(ContentBlock);
  TSHA256 digest;
  std::uint64_t written = 0;
  while (true) {
    const ssize_t count = ::read(source.Get(), block.data(), block.size());
    if (count < 0 && errno == EINTR)
      continue;
    if (count < 0)
      throw TArchiveError(file.string() + " cannot be read: " + SystemReason(errno));
    if (count == 0)
      break;
    const std::string_view bytes(block.data(), static_cast<std::size_t>(count));
    digest.Add(bytes);
    written += bytes.size();
    if (written > size)
      break;
    if (::archive_write_data(FArchive.get(), bytes.data(), bytes.size()) < 0)
      Raise();
  }
  if (written != size || digest.Text() != hash)
    throw TArchiveError(file.string() + " changed while it was read");
  if (::archive_write_finish_entry(FArchive.get()) != ARCHIVE_OK)
    Raise();
}

void TZipArchive::Finish() {
  if (::archive_write_close(FArchive.get()) != ARCHIVE_OK)
    Raise();
}

} // namespace

std::unique_ptr<IContentArchive> NewZipArchive(const std::filesystem::path& file) {
  return std::make_unique<TZipArchive>(file);
}

} // namespace workbench
