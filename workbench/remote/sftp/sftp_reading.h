// Reads files of an SFTP server, many at a time.
#pragma once

#include "workbench/remote/sftp/sftp_channel.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace workbench {

/// Takes what is read. The bytes of each file come in their order, those of different files mixed.
class IFileSink {
public:
  virtual ~IFileSink() = default;
  /// False when no more of this file is wanted.
  virtual bool Bytes(std::size_t file, std::string_view bytes) = 0;
  /// The file is over; called once for each. `status` is Ok when it was read to its end or as far
  /// as it was wanted.
  virtual void Done(std::size_t file, TSftpStatus status) = 0;
};

/// Reads the files of these full paths. Throws TConnectionError.
void ReadFiles(TSftpChannel& channel, std::span<const std::string> paths, IFileSink& sink);

} // namespace workbench
