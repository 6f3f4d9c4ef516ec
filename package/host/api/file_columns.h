// The columns of the file list: what every face of the list calls them and how wide they are.
#pragma once

#include <array>
#include <string_view>

namespace deployment {

/// Indexes that texts, sorting and editing go by.
namespace file_column {

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

} // namespace file_column

/// One column.
struct TFileColumn {
  int Index;
  std::string_view Key; ///< in documents that programs read
  std::string_view Title;
  int Width; ///< pixels at 100 % scaling; 0: no column of the header
};

/// All columns in the order in which a printed row shows them.
inline constexpr std::array<TFileColumn, 10> FileColumns{{
    {file_column::LocalPath, "localPath", "Local Path", 150},
    {file_column::LocalName, "localName", "Local Name", 150},
    {file_column::Type, "type", "Type", 100},
    {file_column::Configuration, "configuration", "Configuration", 80},
    {file_column::Platforms, "platforms", "Platforms", 100},
    {file_column::RemotePath, "remotePath", "Remote Path", 150},
    {file_column::RemoteName, "remoteName", "Remote Name", 150},
    {file_column::RemoteStatus, "remoteStatus", "Remote Status", 128},
    {file_column::LocalStatus, "localStatus", "Local Status", 0},
    {file_column::Overwrite, "overwrite", "Overwrite", 120},
}};

} // namespace deployment
