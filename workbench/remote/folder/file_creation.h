// Makes small files of a folder, each of which one alone of all who try can make.
#pragma once

#include "workbench/remote/target/remote_connection.h"

#include <ctime>
#include <string>
#include <string_view>

namespace workbench {

/// What a new file is called, and while it is not whole.
struct TCreationNames {
  std::string Final;
  std::string Unfinished;
};

/// Makes a file in the open directory, with that text and time. Where the file system gives a file
/// a second name, the file appears with all of its text, so that even a program that is killed
/// leaves none without. Throws std::system_error.
TRemoteCreation CreateFileIn(int directory, const TCreationNames& names, std::string_view text,
                             const timespec& time);

} // namespace workbench
