// What the module of codecs exports.
#include "workbench/codecs/archive_unpacking.h"
#include "workbench/codecs/openssl_digest.h"
#include "workbench/codecs/zip_archive.h"

#include <type_traits>

extern "C" __attribute__((visibility("default"))) void
NewDeploymentDigest(std::unique_ptr<workbench::IDigest>& digest) {
  digest = workbench::NewOpenSSLDigest();
}

extern "C" __attribute__((visibility("default"))) void UnpackDeploymentArchive(
    const std::filesystem::path& archive, const std::filesystem::path& directory,
    const std::function<bool()>& isCancelled, const workbench::TArchiveLimits& limits,
    std::vector<workbench::TArchiveMember>& members) {
  members = workbench::UnpackByLibrary(archive, directory, isCancelled, limits);
}

extern "C" __attribute__((visibility("default"))) void
NewDeploymentContentArchive(const std::filesystem::path& file,
                            std::unique_ptr<workbench::IContentArchive>& archive) {
  archive = workbench::NewZipArchive(file);
}

static_assert(std::is_same_v<decltype(&NewDeploymentDigest), workbench::TNewDigest>);
static_assert(std::is_same_v<decltype(&UnpackDeploymentArchive), workbench::TUnpackFunction>);
static_assert(
    std::is_same_v<decltype(&NewDeploymentContentArchive), workbench::TNewContentArchive>);
