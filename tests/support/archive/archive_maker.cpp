#include "tests/support/archive/archive_maker.h"

#include <archive.h>
#include <archive_entry.h>
#include <stdexcept>
#include <sys/stat.h>

namespace workbench::testing {
namespace {

struct TFreeEntry {
  void operator()(archive_entry* entry) const { ::archive_entry_free(entry); }
};
using TEntry = std::unique_ptr<archive_entry, TFreeEntry>;

TEntry NewEntry(const std::string& name, mode_t kind, mode_t rights) {
  TEntry entry(::archive_entry_new());
  ::archive_entry_set_pathname(entry.get(), name.c_str());
  ::archive_entry_set_filetype(entry.get(), kind);
  ::archive_entry_set_perm(entry.get(), rights);
  ::archive_entry_set_mtime(entry.get(), TArchiveMaker::Time, 0);
  return entry;
}

void Check(struct archive* archive, int result) {
  if (result < ARCHIVE_WARN)
    throw std::runtime_error(::archive_error_string(archive));
}

} // namespace

TArchiveMaker::TArchiveMaker(const std::filesystem::path& file, TFormat format)
    : FArchive(::archive_write_new()) {
  if (format == TFormat::Zip)
    ::archive_write_set_format_zip(FArchive);
  else
    ::archive_write_set_format_gnutar(FArchive);
  if (format == TFormat::TarGzip)
    ::archive_write_add_filter_gzip(FArchive);
  else if (format == TFormat::TarXz)
    ::archive_write_add_filter_xz(FArchive);
  Check(FArchive, ::archive_write_open_filename(FArchive, file.c_str()));
}

TArchiveMaker::~TArchiveMaker() {
  ::archive_write_free(FArchive);
}

TArchiveMaker& TArchiveMaker::File(const std::string& name, const std::string& content,
                                   mode_t rights) {
  const TEntry entry = NewEntry(name, S_IFREG, rights);
  ::archive_entry_set_size(entry.get(), static_cast<la_int64_t>(content.size()));
  Check(FArchive, ::archive_write_header(FArchive, entry.get()));
  if (::archive_write_data(FArchive, content.data(), content.size()) < 0)
    throw std::runtime_error(::archive_error_string(FArchive));
  return *this;
}

TArchiveMaker& TArchiveMaker::Directory(const std::string& name) {
  Check(FArchive, ::archive_write_header(FArchive, NewEntry(name, S_IFDIR, 0755).get()));
  return *this;
}

TArchiveMaker& TArchiveMaker::Link(const std::string& name, const std::string& text) {
  const TEntry entry = NewEntry(name, S_IFLNK, 0777);
  ::archive_entry_set_symlink(entry.get(), text.c_str());
  Check(FArchive, ::archive_write_header(FArchive, entry.get()));
  return *this;
}

TArchiveMaker& TArchiveMaker::HardLink(const std::string& name, const std::string& linked) {
  const TEntry entry = NewEntry(name, S_IFREG, 0644);
  ::archive_entry_set_hardlink(entry.get(), linked.c_str());
  Check(FArchive, ::archive_write_header(FArchive, entry.get()));
  return *this;
}

TArchiveMaker& TArchiveMaker::Special(const std::string& name, mode_t kind) {
  Check(FArchive, ::archive_write_header(FArchive, NewEntry(name, kind, 0644).get()));
  return *this;
}

} // namespace workbench::testing
