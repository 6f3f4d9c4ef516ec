#include "workbench/files/program_image.h"

#include "package/common/errors.h"
#include "workbench/files/file_reader.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace workbench {
namespace {

enum class TByteOrder { Little, Big };

// Numbers in a file; nothing behind its end.
class THeader {
public:
  explicit THeader(const TFileDescriptor& file) : FFile(file) {}

  std::optional<std::uint32_t> Number(off_t offset, std::size_t size,
                                      TByteOrder order = TByteOrder::Little) const {
    std::array<unsigned char, 4> bytes = {};
    ssize_t count = -1;
    do {
      count = ::pread(FFile.Get(), bytes.data(), size, offset);
    } while (count < 0 && errno == EINTR);
    if (count != static_cast<ssize_t>(size))
      return std::nullopt;
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
      value = value << 8 | bytes[order == TByteOrder::Big ? i : size - 1 - i];
    return value;
  }

private:
  const TFileDescriptor& FFile;
};

struct TMachine {
  std::uint32_t Number;
  int Bits; ///< 0 where the format says it elsewhere
  std::string_view Processor;
};

constexpr std::array<TMachine, 6> PEMachines{{
    {0x014c, 32, "x86"},
    {0x01c0, 32, "ARM"},
    {0x01c4, 32, "ARM"},
    {0x0200, 64, "Itanium"},
    {0x8664, 64, "x86-64"},
    {0xaa64, 64, "ARM64"},
}};

constexpr std::array<TMachine, 6> ELFMachines{{
    {3, 0, "x86"},
    {8, 0, "MIPS"},
    {40, 0, "ARM"},
    {62, 0, "x86-64"},
    {183, 0, "ARM64"},
    {243, 0, "RISC-V"},
}};

constexpr std::array<TMachine, 4> MachOMachines{{
    {7, 32, "x86"},
    {12, 32, "ARM"},
    {0x01000007, 64, "x86-64"},
    {0x0100000c, 64, "ARM64"},
}};

TProgramImage ImageOf(TProgramFormat format, int bits, std::span<const TMachine> machines,
                      std::uint32_t number) {
  for (const TMachine& machine : machines) {
    if (machine.Number == number)
      return {format, bits == 0 ? machine.Bits : bits, std::string(machine.Processor)};
  }
  return {format, bits, {}};
}

TProgramImage ReadPE(const THeader& header) {
  constexpr std::uint32_t Mark = 0x00004550; // "PE", 0, 0
  constexpr off_t OffsetOfHeaderOffset = 0x3c;
  const auto offset = header.Number(OffsetOfHeaderOffset, 4);
  if (!offset || header.Number(*offset, 4) != Mark)
    return {};
  const auto machine = header.Number(off_t(*offset) + 4, 2);
  return machine ? ImageOf(TProgramFormat::PE, 0, PEMachines, *machine) : TProgramImage();
}

TProgramImage ReadELF(const THeader& header) {
  const auto width = header.Number(4, 1);
  const auto order = header.Number(5, 1);
  if (!width || !order || *width < 1 || *width > 2)
    return {};
  const auto machine = header.Number(18, 2, *order == 2 ? TByteOrder::Big : TByteOrder::Little);
  return machine ? ImageOf(TProgramFormat::ELF, *width == 2 ? 64 : 32, ELFMachines, *machine)
                 : TProgramImage();
}

TProgramImage ReadMachO(const THeader& header, TByteOrder order, int bits) {
  const auto machine = header.Number(4, 4, order);
  return machine ? ImageOf(TProgramFormat::MachO, bits, MachOMachines, *machine) : TProgramImage();
}

// A compiled class of Java starts with the same mark, followed by a version of 45 and more.
TProgramImage ReadUniversal(const THeader& header) {
  constexpr std::uint32_t MostSlices = 32;
  const auto slices = header.Number(4, 4, TByteOrder::Big);
  if (!slices || *slices == 0 || *slices > MostSlices)
    return {};
  return {TProgramFormat::MachOUniversal, 0, {}};
}

TProgramImage ReadImage(const THeader& header) {
  const auto mark = header.Number(0, 4, TByteOrder::Big);
  switch (mark.value_or(0)) {
  case 0x7f454c46: // 0x7F "ELF"
    return ReadELF(header);
  case 0xfeedface:
    return ReadMachO(header, TByteOrder::Big, 32);
  case 0xcefaedfe:
    return ReadMachO(header, TByteOrder::Little, 32);
  case 0xfeedfacf:
    return ReadMachO(header, TByteOrder::Big, 64);
  case 0xcffaedfe:
    return ReadMachO(header, TByteOrder::Little, 64);
  case 0xcafebabe:
    return ReadUniversal(header);
  default:
    return mark.value_or(0) >> 16 == 0x4d5a ? ReadPE(header) : TProgramImage(); // "MZ"
  }
}

std::string_view NameOf(TProgramFormat format) {
  switch (format) {
  case TProgramFormat::PE:
    return "Windows";
  case TProgramFormat::ELF:
    return "ELF";
  case TProgramFormat::MachO:
    return "Mach-O";
  case TProgramFormat::MachOUniversal:
    return "universal Mach-O";
  case TProgramFormat::None:
    break;
  }
  return {};
}

} // namespace

TProgramImage ReadProgramImage(const std::filesystem::path& file) {
  try {
    const TFileDescriptor descriptor = OpenPlainFile(file, "program");
    return ReadImage(THeader(descriptor));
  } catch (const deployment::TInputError&) {
    return {};
  }
}

std::string DescribeProgramImage(const TProgramImage& image) {
  if (image.Format == TProgramFormat::None)
    return "no program";
  std::string text = image.Bits == 0 ? "" : std::to_string(image.Bits) + "-bit ";
  text.append(NameOf(image.Format)).append(" program");
  if (!image.Processor.empty())
    text.append(" for ").append(image.Processor);
  return text;
}

} // namespace workbench
