// How the bytes of a document stand for characters.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace workbench {

/// The encodings that projects are read and written in.
enum class TXmlEncoding { Utf8, Utf16LittleEndian, Utf16BigEndian, Latin1, Ascii };

/// The encoding of a document that was read: by its byte order mark, else by the zeros of UTF-16,
/// else by what its declaration says.
TXmlEncoding DetectEncoding(std::string_view bytes, std::string_view declared);

/// Its name for the parser.
const char* EncodingName(TXmlEncoding encoding);

/// UTF-8 markup in that encoding, without byte order mark. Characters that the encoding lacks
/// become character references, so they may stand in texts and attribute values only.
std::string EncodeMarkup(std::string utf8, TXmlEncoding encoding);

/// Where the first half of a character stands whose other half is missing; nothing in a document
/// that is sound or is not in UTF-16. The parser would make another character of it.
std::optional<std::size_t> FindHalfCharacter(std::string_view bytes);

} // namespace workbench
