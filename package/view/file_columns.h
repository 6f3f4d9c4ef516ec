// The columns of the file list by the indexes that texts, sorting and editing go by.
#pragma once

namespace deployment::file_column {

inline constexpr int LocalPath = 0;
inline constexpr int LocalName = 1;
inline constexpr int Type = 2;
inline constexpr int Configuration = 3;
inline constexpr int Platforms = 4;
inline constexpr int RemotePath = 5;
inline constexpr int RemoteName = 6;
inline constexpr int RemoteStatus = 7;
inline constexpr int Overwrite = 8;
inline constexpr int LocalStatus = 99; ///< has a text, but is no column of the header

} // namespace deployment::file_column
