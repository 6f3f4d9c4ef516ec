// What a program file was built for, read from its first bytes.
#pragma once

#include <filesystem>
#include <string>

namespace workbench {

/// Kinds of program file.
enum class TProgramFormat { None, PE, ELF, MachO, MachOUniversal };

/// What a header says.
struct TProgramImage {
  TProgramFormat Format = TProgramFormat::None;
  int Bits = 0;          ///< 32 or 64; 0 when the header does not say
  std::string Processor; ///< "x86-64", "ARM" and the like; empty for one that is not in the tables
};

/// Reads the header of a PE, ELF or Mach-O file. Format None for any other file, for one whose
/// header is cut off, and for one that cannot be read; never throws for what a file holds.
TProgramImage ReadProgramImage(const std::filesystem::path& file);

/// Words for a message, such as "64-bit ELF program for x86-64"; "no program" for none.
std::string DescribeProgramImage(const TProgramImage& image);

} // namespace workbench
