// What a server may answer to a request. Whatever else comes is no answer.
#pragma once

#include "workbench/remote/sftp/sftp_wire.h"

namespace workbench {

/// What was asked, as far as it says what the answer can be.
struct TSftpRequest {
  TSftpPacket Kind = TSftpPacket::Status;
  bool HasResult = false; ///< of an extended request: it is answered by more than a status
};

/// Throws TSftpFormatError for an answer of another kind than the request's, for one that says that
/// all is well without what was asked for, and for one that does not end where it should.
void CheckAnswer(const TSftpRequest& request, const TSftpReply& answer);

} // namespace workbench
