// A JSON value. Members of objects keep their order.
#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace workbench {

struct TJsonMember;

/// One value: null, a Boolean, a number, a text, an array or an object. An object is made from its
/// members, {{"name", "x"}, {"size", 3}}; an array is made empty and appended to.
class TJson {
public:
  using TArray = std::vector<TJson>;
  using TObject = std::vector<TJsonMember>;

  TJson();
  /// No Boolean is made from a pointer or a number by accident.
  template <std::same_as<bool> T>
  TJson(T value) : TJson(TBoolean{value}) {}
  template <std::integral T>
  requires(!std::same_as<T, bool>) TJson(T value)
      : TJson(TWhole{value < 0, static_cast<std::uint64_t>(value)}) {}
  template <std::floating_point T>
  TJson(T value) : TJson(TReal{double(value)}) {}
  TJson(const char* text);
  TJson(std::string_view text);
  TJson(std::string text);
  /// An array of texts.
  TJson(const std::vector<std::string>& texts);
  TJson(std::initializer_list<TJsonMember> members);
  TJson(const TJson&);
  TJson(TJson&&) noexcept;
  TJson& operator=(const TJson&);
  TJson& operator=(TJson&&) noexcept;
  ~TJson();

  static TJson Array();
  static TJson Object();

  /// Adds to an array.
  void Append(TJson value);
  /// Adds a member to an object, which must not have one of that name.
  void Add(std::string name, TJson value);
  /// The same, but a member of that name gets the new value.
  void Set(std::string_view name, TJson value);
  /// Adds the members of another object.
  void AddAll(TJson object);

  bool IsNull() const { return FValue.index() == 0; }
  bool IsText() const { return std::holds_alternative<std::string>(FValue); }
  bool IsArray() const { return std::holds_alternative<TArray>(FValue); }
  bool IsObject() const { return std::holds_alternative<TObject>(FValue); }

  /// The member of an object; null when there is none.
  const TJson* Find(std::string_view name) const;

  // What follows throws TInputError when there is no such member, or a value is of another kind or
  // out of range.

  const TJson& At(std::string_view name) const;
  /// The value itself; `name` is that of its member, for the message.
  bool AsBoolean(std::string_view name = {}) const;
  const std::string& AsText(std::string_view name = {}) const;
  std::vector<std::string> AsTexts(std::string_view name = {}) const;
  const TArray& AsArray(std::string_view name = {}) const;
  const TObject& AsObject(std::string_view name = {}) const;
  /// A whole number from `least` to `most`.
  std::uint64_t AsNumber(std::uint64_t least, std::uint64_t most, std::string_view name = {}) const;

  /// The value of a member.
  const std::string& Text(std::string_view name) const { return At(name).AsText(name); }
  const TArray& Array(std::string_view name) const { return At(name).AsArray(name); }
  /// The value of a member that may be absent.
  std::string TextOr(std::string_view name, std::string_view absent) const;
  std::vector<std::string> TextsOr(std::string_view name, std::vector<std::string> absent) const;
  bool BooleanOr(std::string_view name, bool absent) const;

  /// A whole number of the type asked for, in a member.
  template <std::unsigned_integral T>
  T Number(std::string_view name, T least = 0, T most = std::numeric_limits<T>::max()) const {
    return static_cast<T>(At(name).AsNumber(least, most, name));
  }
  template <std::unsigned_integral T>
  T NumberOr(std::string_view name, T absent, T least = 0,
             T most = std::numeric_limits<T>::max()) const {
    const TJson* value = Find(name);
    return value ? static_cast<T>(value->AsNumber(least, most, name)) : absent;
  }

  /// The order of members counts.
  bool operator==(const TJson& other) const;

private:
  friend class TJsonTextWriter;

  struct TBoolean {
    bool Value;
  };
  struct TWhole {
    bool IsNegative;
    std::uint64_t Value; ///< modulo 2^64
  };
  struct TReal {
    double Value;
  };
  explicit TJson(TBoolean value);
  explicit TJson(TWhole value);
  explicit TJson(TReal value);

  // A whole number has a sign when it is negative only.
  std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double, std::string, TArray,
               TObject>
      FValue;
};

/// A member of an object.
struct TJsonMember {
  std::string Name;
  TJson Value;

  bool operator==(const TJsonMember& other) const {
    return Name == other.Name && Value == other.Value;
  }
};

/// The value as text: on one line without an indent, else with one of so many blanks for each
/// level. Bytes that are not UTF-8 become replacement characters.
std::string JsonText(const TJson& value, int indent = 2);

/// True when every text in the value is UTF-8, so that its text says all of it.
bool IsStorableJson(const TJson& value);

/// Reads a text. Throws TInputError, with the line, for what is no JSON, a number beyond all
/// ranges, a member that an object has twice and values nested deeper than 200 levels.
TJson ParseJson(std::string_view text);

/// Gives the next item of a large object or array, the name being that of a member; false when
/// there is none.
using TNextJsonItem = std::function<bool(TJsonMember& item)>;
/// Takes a member of a large object. It has to refuse a name that it had before.
using TTakeJsonMember = std::function<void(std::string name, const TJson& value)>;

/// Takes the next piece of a text.
using TTakeText = std::function<void(std::string_view piece)>;

/// What a large member of an object consists of.
enum class TJsonItems { Members, Values };

/// Hands over the text of an object that has an object, or array, of these items as its last
/// member, piece by piece; neither the value nor the text is ever there as a whole.
void WriteJsonWithItems(const TJson& object, std::string_view name, TJsonItems kind,
                        const TNextJsonItem& next, int indent, const TTakeText& take);

/// Reads a text, and hands over the members of the object `large` at its root as they come; that
/// object is empty in what is returned. Throws as above, and what `take` throws.
TJson ParseJson(std::string_view text, std::string_view large, const TTakeJsonMember& take);

} // namespace workbench
