#include "tests/faults/system_calls.h"

#include <cerrno>
#include <map>
#include <sys/syscall.h>

namespace faults {

const TSystemCall* FindSystemCall(std::uint64_t number) {
  static const std::map<std::uint64_t, TSystemCall> calls = {
      {SYS_open, {"open", 0, -1, false}},
      {SYS_openat, {"openat", 1, -1, false}},
      {SYS_openat2, {"openat2", 1, -1, false}},
      {SYS_close, {"close", -1, 0, false}},
      {SYS_read, {"read", -1, 0, true}},
      {SYS_write, {"write", -1, 0, true}},
      {SYS_pread64, {"pread64", -1, 0, true}},
      {SYS_pwrite64, {"pwrite64", -1, 0, true}},
      {SYS_readv, {"readv", -1, 0, false}},
      {SYS_writev, {"writev", -1, 0, false}},
      {SYS_sendfile, {"sendfile", -1, 0, false}},
      {SYS_copy_file_range, {"copy_file_range", -1, 0, false}},
      {SYS_sendto, {"sendto", -1, 0, true}},
      {SYS_recvfrom, {"recvfrom", -1, 0, true}},
      {SYS_sendmsg, {"sendmsg", -1, 0, false}},
      {SYS_recvmsg, {"recvmsg", -1, 0, false}},
      {SYS_lseek, {"lseek", -1, 0, false}},
      {SYS_fsync, {"fsync", -1, 0, false}},
      {SYS_fdatasync, {"fdatasync", -1, 0, false}},
      {SYS_syncfs, {"syncfs", -1, 0, false}},
      {SYS_sync_file_range, {"sync_file_range", -1, 0, false}},
      {SYS_stat, {"stat", 0, -1, false}},
      {SYS_lstat, {"lstat", 0, -1, false}},
      {SYS_fstat, {"fstat", -1, 0, false}},
      {SYS_newfstatat, {"newfstatat", 1, 0, false}},
      {SYS_statx, {"statx", 1, 0, false}},
      {SYS_statfs, {"statfs", 0, -1, false}},
      {SYS_fstatfs, {"fstatfs", -1, 0, false}},
      {SYS_access, {"access", 0, -1, false}},
      {SYS_faccessat, {"faccessat", 1, -1, false}},
      {SYS_faccessat2, {"faccessat2", 1, -1, false}},
      {SYS_readlink, {"readlink", 0, -1, false}},
      {SYS_readlinkat, {"readlinkat", 1, -1, false}},
      {SYS_getcwd, {"getcwd", -1, -1, false}},
      {SYS_chdir, {"chdir", 0, -1, false}},
      {SYS_getdents64, {"getdents64", -1, 0, false}},
      {SYS_rename, {"rename", 0, -1, false}},
      {SYS_renameat, {"renameat", 1, -1, false}},
      {SYS_renameat2, {"renameat2", 1, -1, false}},
      {SYS_link, {"link", 0, -1, false}},
      {SYS_linkat, {"linkat", 1, -1, false}},
      {SYS_symlink, {"symlink", 1, -1, false}},
      {SYS_symlinkat, {"symlinkat", 2, -1, false}},
      {SYS_unlink, {"unlink", 0, -1, false}},
      {SYS_unlinkat, {"unlinkat", 1, -1, false}},
      {SYS_mkdir, {"mkdir", 0, -1, false}},
      {SYS_mkdirat, {"mkdirat", 1, -1, false}},
      {SYS_rmdir, {"rmdir", 0, -1, false}},
      {SYS_truncate, {"truncate", 0, -1, false}},
      {SYS_ftruncate, {"ftruncate", -1, 0, false}},
      {SYS_fallocate, {"fallocate", -1, 0, false}},
      {SYS_chmod, {"chmod", 0, -1, false}},
      {SYS_fchmod, {"fchmod", -1, 0, false}},
      {SYS_fchmodat, {"fchmodat", 1, -1, false}},
      {SYS_chown, {"chown", 0, -1, false}},
      {SYS_fchown, {"fchown", -1, 0, false}},
      {SYS_fchownat, {"fchownat", 1, -1, false}},
      {SYS_utimensat, {"utimensat", 1, -1, false}},
      {SYS_flock, {"flock", -1, 0, false}},
      {SYS_fcntl, {"fcntl", -1, 0, false}},
      {SYS_ioctl, {"ioctl", -1, 0, false}},
      {SYS_flistxattr, {"flistxattr", -1, 0, false}},
      {SYS_fgetxattr, {"fgetxattr", -1, 0, false}},
      {SYS_fsetxattr, {"fsetxattr", -1, 0, false}},
      {SYS_pipe2, {"pipe2", -1, -1, false}},
      {SYS_dup, {"dup", -1, 0, false}},
      {SYS_dup2, {"dup2", -1, 0, false}},
      {SYS_dup3, {"dup3", -1, 0, false}},
      {SYS_poll, {"poll", -1, -1, false}},
      {SYS_ppoll, {"ppoll", -1, -1, false}},
      {SYS_socket, {"socket", -1, -1, false}},
      {SYS_socketpair, {"socketpair", -1, -1, false}},
      {SYS_connect, {"connect", -1, 0, false}},
      {SYS_bind, {"bind", -1, 0, false}},
      {SYS_listen, {"listen", -1, 0, false}},
      {SYS_clone, {"clone", -1, -1, false}},
      {SYS_clone3, {"clone3", -1, -1, false}},
      {SYS_vfork, {"vfork", -1, -1, false}},
      {SYS_fork, {"fork", -1, -1, false}},
      {SYS_wait4, {"wait4", -1, -1, false}},
  };
  const auto found = calls.find(number);
  return found == calls.end() ? nullptr : &found->second;
}

std::string ErrorName(int error) {
  static const std::map<int, const char*> names = {
      {EIO, "EIO"},       {ENOSPC, "ENOSPC"}, {EACCES, "EACCES"}, {EINTR, "EINTR"},
      {EDQUOT, "EDQUOT"}, {EROFS, "EROFS"},   {EMFILE, "EMFILE"}, {ENOMEM, "ENOMEM"}};
  const auto found = names.find(error);
  return found == names.end() ? std::to_string(error) : found->second;
}

} // namespace faults
