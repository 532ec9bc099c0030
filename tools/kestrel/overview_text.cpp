#include "tools/kestrel/overview_text.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "tools/kestrel/console_text.h"
#include "tools/kestrel/value_text.h"

namespace kestrel {

namespace {

constexpr std::size_t kLineWidth = 100;
// Labels make a column as wide as the longest of them, within bounds.
constexpr std::size_t kNarrowestColumn = 12;
constexpr std::size_t kWidestColumn = 32;

// No machine has longer texts; a hostile table may.
constexpr std::size_t kLongestText = 96;
constexpr std::size_t kMostDevices = 32;
constexpr std::size_t kMostEmptySlots = 16;
constexpr std::size_t kMostRows = 8;

std::size_t WidthOf(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char character) {
    // Every character but for the bytes that go on with one.
    return (static_cast<unsigned char>(character) & 0xC0U) != 0x80;
  }));
}

// A text of the firmware with one blank where it has several.
std::string Clipped(std::string_view text) {
  const std::string shown = TextOfFirmware(text.substr(0, kLongestText));
  std::string clipped;
  std::unique_copy(shown.begin(), shown.end(), std::back_inserter(clipped),
                   [](char left, char right) { return left == ' ' && right == ' '; });
  return text.size() <= kLongestText ? clipped : clipped + "...";
}

// Texts that are joined as a list, those that are empty left out.
std::string JoinList(std::string_view separator, std::initializer_list<std::string> texts) {
  std::string list;
  for (const std::string& text : texts) {
    if (!text.empty()) {
      Append(list, {list.empty() ? "" : separator, text});
    }
  }
  return list;
}

// The text after a word that says what it is.
std::string Labelled(std::string_view word, std::string_view text) {
  return text.empty() ? std::string() : Join({word, " ", Clipped(text)});
}

std::string Count(std::uint64_t count, std::string_view one, std::string_view several) {
  return Join({Decimal(count), " ", count == 1 ? one : several});
}

std::string SizeOrNothing(std::optional<std::uint64_t> bytes) {
  return bytes && *bytes != 0 ? TextOfSize(*bytes) : std::string();
}

// A product under its maker's name, which often stands in both.
std::string Product(std::string_view maker, std::string_view name) {
  return name.starts_with(maker) ? Clipped(name) : JoinList(" ", {Clipped(maker), Clipped(name)});
}

// Versions of several words are names; others need a word that says what they are.
std::string VersionText(std::string_view version) {
  const bool isName = version.find(' ') != std::string_view::npos &&
                      (version.front() < '0' || version.front() > '9');
  return isName ? Clipped(version) : Labelled("version", version);
}

// How much of the text goes into a line: up to the end of a phrase or, where that is too long, of a
// word.
std::size_t LengthOfLine(std::string_view text, std::size_t width) {
  std::size_t lastPhrase = 0;
  std::size_t lastWord = 0;
  std::size_t end = 0;
  for (std::size_t count = 0; end < text.size(); ++end) {
    if (WidthOf(text.substr(end, 1)) != 0 && count++ == width) {
      return lastPhrase != 0 ? lastPhrase : lastWord != 0 ? lastWord : end;
    }
    if (text[end] == ' ' && end != 0) {
      lastWord = end;
      lastPhrase = text[end - 1] == ',' || text[end - 1] == ';' ? end : lastPhrase;
    }
  }
  return end;
}

// Rows of a label and a text.
class RowList {
 public:
  // Rows without text are left out.
  void Add(std::string label, std::string text) {
    if (!text.empty()) {
      Rows.emplace_back(std::move(label), std::move(text));
    }
  }

  std::string GetText() const {
    std::size_t column = kNarrowestColumn;
    for (const auto& [label, text] : Rows) {
      const std::size_t width = WidthOf(label) + 2;
      column = width <= kWidestColumn ? std::max(column, width) : column;
    }
    std::string lines;
    for (const auto& [label, text] : Rows) {
      AppendRow(lines, label, text, column);
    }
    return lines;
  }

 private:
  static void AppendRow(std::string& lines, std::string_view label, std::string_view text,
                        std::size_t column) {
    lines.append(label);
    std::size_t width = WidthOf(label);
    if (width + 2 > column) {
      lines.append(kLineEnd);
      width = 0;
    }
    while (!text.empty()) {
      const std::size_t length = LengthOfLine(text, kLineWidth - column);
      lines.append(column - width, ' ').append(text.substr(0, length)).append(kLineEnd);
      text.remove_prefix(std::min(text.find_first_not_of(' ', length), text.size()));
      width = 0;
    }
  }

  std::vector<std::pair<std::string, std::string>> Rows;
};

// Rows under one label, equal ones together, the first few of them.
class RowGroup {
 public:
  void Add(const std::string& text) {
    if (text.empty()) {
      return;
    }
    const auto known = std::find_if(Texts.begin(), Texts.end(),
                                    [&](const auto& row) { return row.first == text; });
    if (known != Texts.end()) {
      ++known->second;
    } else if (Texts.size() < kMostRows) {
      Texts.emplace_back(text, 1);
    } else {
      ++More;
    }
  }

  void AddTo(RowList& rows, std::string label) const {
    for (const auto& [text, count] : Texts) {
      rows.Add(std::exchange(label, {}), count == 1 ? text : Join({Decimal(count), " x ", text}));
    }
    rows.Add({}, More != 0 ? Join({"and ", Decimal(More), " more"}) : std::string());
  }

 private:
  std::vector<std::pair<std::string, std::uint64_t>> Texts;
  std::uint64_t More = 0;
};

std::string TextOfProcessor(const ProcessorFacts& processor) {
  const auto& [l1, l2, l3] = processor.CacheBytes;
  const std::string cores =
      !processor.Cores ? std::string() : Count(*processor.Cores, "core", "cores");
  const bool isPart = processor.CoresEnabled && processor.CoresEnabled != processor.Cores;
  const auto maximum = processor.MaximumSpeedMegahertz;
  const auto current = processor.CurrentSpeedMegahertz;
  return JoinList(
      ", ",
      {Clipped(processor.Version.empty() ? processor.Manufacturer : processor.Version), cores,
       isPart ? Join({Decimal(*processor.CoresEnabled), " enabled"}) : "",
       processor.Threads ? Count(*processor.Threads, "thread", "threads") : "",
       maximum   ? Join({"up to ", Decimal(*maximum), " MHz"})
       : current ? Join({Decimal(*current), " MHz"})
                 : "",
       Labelled(l3.value_or(0) != 0 ? "L3" : "L2", SizeOrNothing(l3.value_or(0) != 0 ? l3 : l2)),
       processor.IsDisabled ? "disabled" : ""});
}

void AddProcessors(RowList& rows, const Overview& overview) {
  RowGroup processors;
  std::uint64_t empty = 0;
  overview.ForEachProcessor([&](const ProcessorFacts& processor) {
    // Some firmware does not say that the socket of a processor at work is populated.
    if (processor.Populated == false && !processor.CurrentSpeedMegahertz) {
      ++empty;
    } else {
      processors.Add(TextOfProcessor(processor));
    }
  });
  if (empty != 0) {
    processors.Add(Count(empty, "socket empty", "sockets empty"));
  }
  processors.AddTo(rows, "Processor");
}

std::string TextOfMemory(const MemoryFacts& memory) {
  const std::string size = SizeOrNothing(memory.InstalledBytes);
  const std::string slots =
      memory.Slots
          ? Join({Decimal(*memory.SlotsUsed), " of ", Count(*memory.Slots, "slot", "slots")})
          : std::string();
  // Firmware that says less than there is knows nothing of newer modules.
  const bool isPossible = memory.MaximumBytes >= memory.InstalledBytes;
  return JoinList(", ", {JoinList(" in ", {size, slots}),
                         isPossible ? Labelled("at most", SizeOrNothing(memory.MaximumBytes)) : "",
                         memory.ErrorCorrection == "None" ? "" : Clipped(memory.ErrorCorrection)});
}

std::string Unless(std::string_view nothing, std::string_view text) {
  return text == nothing ? std::string() : std::string(text);
}

std::string TextOfDevice(const MemoryDeviceFacts& device) {
  const auto speed = device.ConfiguredSpeedMegatransfersPerSecond
                         ? device.ConfiguredSpeedMegatransfersPerSecond
                         : device.SpeedMegatransfersPerSecond;
  const bool isInType = device.Type.find(device.FormFactor) != std::string_view::npos;
  return JoinList(", ",
                  {JoinList(" ", {SizeOrNothing(device.SizeBytes), Unless("Other", device.Type),
                                  isInType ? "" : Unless("Other", device.FormFactor)}),
                   speed ? Join({Decimal(*speed), " MT/s"}) : "",
                   Product(device.Manufacturer, device.PartNumber)});
}

// The first devices of a kind, and how many there are.
struct DeviceList {
  std::size_t Most;
  std::size_t Count = 0;
  std::vector<MemoryDeviceFacts> First = {};

  void Add(const MemoryDeviceFacts& device) {
    if (Count++ < Most) {
      First.push_back(device);
    }
  }
  std::string Rest() const {
    return Count > Most ? Join({"and ", Decimal(Count - Most), " more"}) : std::string();
  }
};

void AddMemory(RowList& rows, const Overview& overview) {
  rows.Add("Memory", TextOfMemory(overview.GetMemory()));
  DeviceList used = {.Most = kMostDevices};
  DeviceList empty = {.Most = kMostEmptySlots};
  overview.ForEachMemoryDevice([&](const MemoryDeviceFacts& device) {
    (device.SizeBytes == 0U ? empty : used).Add(device);
  });
  // Locators are often the same in each bank.
  std::map<std::string_view, std::size_t> uses;
  for (const DeviceList* list : {&used, &empty}) {
    for (const MemoryDeviceFacts& device : list->First) {
      uses[device.Locator] = 0;
    }
  }
  overview.ForEachMemoryDevice([&](const MemoryDeviceFacts& device) {
    if (const auto use = uses.find(device.Locator); use != uses.end()) {
      ++use->second;
    }
  });
  const auto nameOf = [&](const MemoryDeviceFacts& device) {
    const bool isEnough = uses[device.Locator] == 1 && !device.Locator.empty();
    return JoinList(", ", {Clipped(device.Locator), isEnough ? "" : Clipped(device.Bank)});
  };
  for (const MemoryDeviceFacts& device : used.First) {
    rows.Add("  " + nameOf(device), TextOfDevice(device));
  }
  rows.Add({}, used.Rest());
  std::string names;
  for (const MemoryDeviceFacts& device : empty.First) {
    names = JoinList("; ", {names, nameOf(device)});
  }
  rows.Add("  Empty", JoinList("; ", {names, empty.Rest()}));
}

void AddSlots(RowList& rows, const Overview& overview) {
  std::uint64_t slots = 0;
  std::uint64_t used = 0;
  overview.ForEachSlot([&](const SlotFacts& slot) {
    ++slots;
    used += slot.InUse == true ? 1 : 0;
  });
  rows.Add("Slots", slots != 0 ? Join({Decimal(slots), ", ", Decimal(used), " in use"}) : "");
}

void AddPower(RowList& rows, const Overview& overview) {
  RowGroup supplies;
  overview.ForEachPowerSupply([&](const PowerSupplyFacts& supply) {
    const auto watts = supply.MaximumWatts;
    supplies.Add(JoinList(", ", {Product(supply.Manufacturer, supply.Name),
                                 watts.value_or(0) != 0 ? Join({Decimal(*watts), " W"}) : "",
                                 supply.Present == false ? "not present" : ""}));
  });
  supplies.AddTo(rows, "Power supply");
  RowGroup batteries;
  overview.ForEachBattery([&](const BatteryFacts& battery) {
    const auto capacity = battery.DesignCapacityMilliwattHours;
    batteries.Add(JoinList(
        ", ", {Product(battery.Manufacturer, battery.Name),
               capacity.value_or(0) != 0 ? TextOfQuantity("_milliwatt_hours", *capacity) : "",
               Clipped(battery.Chemistry)}));
  });
  batteries.AddTo(rows, "Battery");
}

std::string TextOfBios(const BiosFacts& bios) {
  return JoinList(
      ", ", {JoinList(" ", {Clipped(bios.Vendor), Clipped(bios.Version)}), bios.ReleaseDate,
             bios.Uefi == true ? "UEFI" : "", bios.VirtualMachine == true ? "virtual machine" : "",
             SizeOrNothing(bios.RomSizeBytes)});
}

std::string TextOfFaults(const catalog::FaultList& faults) {
  std::uint64_t errors = 0;
  std::uint64_t remarks = 0;
  for (const catalog::Fault& fault : faults.GetFaults()) {
    ++(fault.Severity == catalog::FaultSeverity::Error ? errors : remarks);
  }
  const std::string counts =
      JoinList(", ", {errors != 0 ? Count(errors, "error", "errors") : "",
                      remarks != 0 ? Count(remarks, "remark", "remarks") : ""});
  return counts.empty() ? counts : counts + ": see 'kestrel check'";
}

}  // namespace

std::string OverviewText(const Overview& overview, const catalog::FaultList& faults) {
  const SystemFacts system = overview.GetSystem();
  const BaseBoardFacts board = overview.GetBaseBoard();
  const ChassisFacts chassis = overview.GetChassis();
  RowList rows;
  rows.Add("System", JoinList(", ", {Product(system.Manufacturer, system.ProductName),
                                     VersionText(system.Version),
                                     Labelled("serial number", system.SerialNumber)}));
  rows.Add("Base board",
           JoinList(", ", {Product(board.Manufacturer, board.Product), VersionText(board.Version),
                           Labelled("serial number", board.SerialNumber)}));
  rows.Add("Chassis", JoinList(", ", {Unless("Other", chassis.Type), Clipped(chassis.Manufacturer),
                                      VersionText(chassis.Version),
                                      Labelled("serial number", chassis.SerialNumber)}));
  rows.Add("BIOS", TextOfBios(overview.GetBios()));
  AddProcessors(rows, overview);
  AddMemory(rows, overview);
  AddSlots(rows, overview);
  AddPower(rows, overview);
  if (const std::optional<TpmFacts> tpm = overview.GetTpm()) {
    rows.Add("TPM", JoinList(", ", {Clipped(tpm->Vendor), VersionText(tpm->Version)}));
  }
  rows.Add("Faults", TextOfFaults(faults));
  return rows.GetText();
}

}  // namespace kestrel
