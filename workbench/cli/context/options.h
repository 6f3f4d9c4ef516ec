// How a command declares what it takes on the command line, whichever parser reads that.
#pragma once

#include <string>
#include <vector>

namespace workbench {

/// One declared option or argument. Owned by the command line that it was declared on.
class IOption {
public:
  virtual ~IOption() = default;
  /// The command line is wrong without it.
  virtual IOption& Required() = 0;
  /// The word that stands for its value in the help.
  virtual IOption& ValueName(const std::string& name) = 0;
  /// The help says what the value is now.
  virtual IOption& ShowDefault() = 0;
  /// The help leaves it out.
  virtual IOption& Hidden() = 0;
  /// As it was declared: "--jobs", "FILE".
  virtual std::string Name() const = 0;
  /// True when the command line that was read has it, even with an empty value.
  virtual bool IsGiven() const = 0;
};

/// A text and the option that it was given with.
struct TGivenText {
  std::string Option; ///< as IOption::Name
  std::string Text;
};

/// What a command line takes. A name that begins with "-" is an option, with a short form before a
/// comma where it has one ("-c,--config"); any other name is an argument, in the order of
/// declaration. What is declared lands in the variable given, which must outlive the command line
/// and holds the default until then.
class IOptions {
public:
  virtual ~IOptions() = default;
  /// An option without a value.
  virtual IOption& Flag(const std::string& name, bool& value, const std::string& help) = 0;
  virtual IOption& Text(const std::string& name, std::string& value, const std::string& help) = 0;
  /// An option that may be repeated, with one text each time; an argument takes all that follow.
  virtual IOption& Texts(const std::string& name, std::vector<std::string>& values,
                         const std::string& help) = 0;
  /// The same for an option that shares its list with others: the texts stand in it in the order of
  /// the command line.
  virtual IOption& Sequence(const std::string& name, std::vector<TGivenText>& values,
                            const std::string& help) = 0;
  /// One of the texts given, exactly.
  virtual IOption& Choice(const std::string& name, std::string& value,
                          const std::vector<std::string>& choices, const std::string& help) = 0;
  /// A whole number from `least` to `most`.
  virtual IOption& Number(const std::string& name, unsigned& value, int least, int most,
                          const std::string& help) = 0;
  /// Text below the help of all options.
  virtual void Footer(const std::string& text) = 0;
};

} // namespace workbench
