#include <array>
#include <cstddef>

#include "base/table_cursor.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

// BIOS Language Information: the languages in which the BIOS can show its texts. Layout: DMTF
// DSP0134, "BIOS Language Information (Type 13) structure".
class SMType13Obj final : public SMObj {
 public:
  static constexpr std::size_t kReservedSize = 15;

  SMType13Obj() { SetType(13); }

  void SetInstallableLanguages(std::uint8_t value) { InstallableLanguages = value; }
  void SetFlags(std::uint8_t value) { Flags = value; }
  void SetReserved(const std::array<std::uint8_t, kReservedSize>& value) { Reserved = value; }
  void SetCurrentLanguage(std::uint8_t value) { CurrentLanguage = value; }

  std::uint8_t GetInstallableLanguages() const { return InstallableLanguages; }

  ItemText GetCurrentLanguageText() const {
    return {"Current Language : ", GetString(CurrentLanguage)};
  }
  // The number of languages and a line for each, each with its line end.
  std::string GetLanguagesText() const;
  ItemText GetInstallableLanguagesText() const {
    return {"Installable Languages : ", Decimal(InstallableLanguages)};
  }
  ItemText GetLanguageText(std::size_t index) const {
    return {Decimal(index), ") ", GetStrings()[index]};
  }

  std::string ToString() const override;

 private:
  std::uint8_t CurrentLanguage = 0;
  std::array<std::uint8_t, kReservedSize> Reserved{};
  std::uint8_t Flags = 0;
  std::uint8_t InstallableLanguages = 0;
};

std::string SMType13Obj::GetLanguagesText() const {
  std::string text;
  Append(text, {GetInstallableLanguagesText(), LineEnd});
  for (std::size_t index = 0; index < GetStrings().size(); ++index) {
    Append(text, {"\t\t", GetLanguageText(index), LineEnd});
  }
  return text;
}

std::string SMType13Obj::ToString() const {
  TextBlock block("BIOS Language Information (Type 13)");
  block.Item(GetCurrentLanguageText());
  block.Item(GetLanguagesText());
  // The languages text ends with a line end, so that of its item is the empty line.
  return block.CloseWithoutEmptyLine();
}

}  // namespace

void SMBiosReader::ReadType13(TableCursor& cursor) {
  ReadStructure<SMType13Obj>(cursor, [&](auto& object) {
    object.SetInstallableLanguages(cursor.U8());
    object.SetFlags(cursor.U8());
    std::array<std::uint8_t, SMType13Obj::kReservedSize> reserved{};
    cursor.Bytes(reserved);
    object.SetReserved(reserved);
    object.SetCurrentLanguage(cursor.U8());
    object.SetStringCount(object.GetInstallableLanguages());
  });
}

}  // namespace kestrel
