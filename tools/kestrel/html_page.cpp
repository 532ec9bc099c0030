#include "tools/kestrel/html_page.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/text.h"
#include "catalog/decoder.h"
#include "catalog/meant_version.h"
#include "catalog/structure_fields.h"
#include "catalog/type_catalog.h"
#include "overview/overview.h"
#include "page_template.h"
#include "tools/kestrel/handle_names.h"
#include "tools/kestrel/html_drawings.h"
#include "tools/kestrel/html_writer.h"
#include "tools/kestrel/structure_lines.h"
#include "tools/kestrel/value_text.h"

namespace kestrel {

namespace {

using catalog::Structure;
using catalog::StructureFields;

// No machine has more rows of a kind than are worth a table; a hostile table may.
constexpr std::uint64_t kMostRowsOfTable = 128;

std::string YesOrNo(std::optional<bool> answer, std::string_view yes, std::string_view no) {
  return std::string(!answer ? "unknown" : *answer ? yes : no);
}

std::string NumberWith(std::optional<std::uint64_t> number, std::string_view unit) {
  return number ? Join({Decimal(*number), unit}) : std::string();
}

std::string JoinTexts(std::string_view separator, std::initializer_list<std::string_view> texts) {
  std::string joined;
  for (const std::string_view text : texts) {
    if (!text.empty()) {
      Append(joined, {joined.empty() ? "" : separator, TextOfFirmware(text)});
    }
  }
  return joined;
}

std::string AnchorOf(const Structure& structure) { return Join({"s", Hex(structure.Offset, 1)}); }
std::string LinkTo(const Structure& structure) { return Join({"#", AnchorOf(structure)}); }

// A section of the page, which begins with what stands in it first.
class LateSection {
 public:
  LateSection(HtmlWriter& html, std::string_view title) : Html(html), Title(title) {}

  void Begin() {
    if (!std::exchange(IsOpen, true)) {
      Html.Open("section");
      Html.TextElement("h2", Title);
    }
  }
  void End() {
    if (IsOpen) {
      Html.Close();
    }
  }

 private:
  HtmlWriter& Html;
  std::string_view Title;
  bool IsOpen = false;
};

// A table of the page, which begins with its first row.
class RowWriter {
 public:
  RowWriter(HtmlWriter& html, LateSection& section, std::string_view caption,
            std::initializer_list<std::string_view> titles)
      : Html(html), Section(section), Caption(caption), Titles(titles) {}

  void Add(std::initializer_list<std::string> cells) {
    if (Count++ == 0) {
      Begin();
    }
    if (Count > kMostRowsOfTable) {
      return;
    }
    Html.Open("tr");
    for (const std::string& cell : cells) {
      Html.TextElement("td", cell);
    }
    Html.Close();
    Html.EndLine();
  }

  void End() {
    if (Count == 0) {
      return;
    }
    Html.Close();
    Html.Close();
    if (Count > kMostRowsOfTable) {
      Html.TextElement("p", Join({"and ", Decimal(Count - kMostRowsOfTable), " more"}),
                       {{"class", "note"}});
    }
  }

 private:
  void Begin() {
    Section.Begin();
    Html.Open("div", {{"class", "wide"}});
    Html.Open("table");
    Html.TextElement("caption", Caption);
    Html.Open("tr");
    for (const std::string_view title : Titles) {
      Html.TextElement("th", title, {{"scope", "col"}});
    }
    Html.Close();
    Html.EndLine();
  }

  HtmlWriter& Html;
  LateSection& Section;
  std::string_view Caption;
  std::vector<std::string_view> Titles;
  std::uint64_t Count = 0;
};

void WriteTables(HtmlWriter& html, const Overview& overview, const catalog::TableScan& scan) {
  LateSection section(html, "Slots, ports, power and sensors");
  RowWriter slots(html, section, "Slots", {"Slot", "Type", "State"});
  overview.ForEachSlot([&](const SlotFacts& slot) {
    slots.Add({TextOfFirmware(slot.Designation), TextOfFirmware(slot.Type),
               YesOrNo(slot.InUse, "in use", "free")});
  });
  slots.End();
  RowWriter ports(html, section, "Ports", {"Port", "Connector", "Type"});
  overview.ForEachPort([&](const PortFacts& port) {
    ports.Add({TextOfFirmware(port.Designation), TextOfFirmware(port.Connector),
               TextOfFirmware(port.Type)});
  });
  ports.End();
  RowWriter supplies(html, section, "Power supplies", {"Location", "Name", "Maximum", "State"});
  overview.ForEachPowerSupply([&](const PowerSupplyFacts& supply) {
    supplies.Add(
        {TextOfFirmware(supply.Location), JoinTexts(" ", {supply.Manufacturer, supply.Name}),
         NumberWith(supply.MaximumWatts, " W"), YesOrNo(supply.Present, "present", "not present")});
  });
  supplies.End();
  RowWriter batteries(html, section, "Batteries", {"Name", "Chemistry", "Design capacity"});
  overview.ForEachBattery([&](const BatteryFacts& battery) {
    const auto capacity = battery.DesignCapacityMilliwattHours;
    batteries.Add({JoinTexts(" ", {battery.Manufacturer, battery.Name}),
                   TextOfFirmware(battery.Chemistry),
                   capacity ? TextOfQuantity("_milliwatt_hours", *capacity, false) : "unknown"});
  });
  batteries.End();

  constexpr std::uint8_t kFirstSensor = 26;
  constexpr std::uint8_t kCoolingDevice = 27;
  constexpr std::uint8_t kLastSensor = 29;
  RowWriter sensors(html, section, "Sensors and cooling",
                    {"Sensor", "What it measures", "Place", "State"});
  for (const Structure& structure : scan.Structures) {
    if (structure.Type >= kFirstSensor && structure.Type <= kLastSensor) {
      const StructureFields fields(structure);
      const bool isCooling = structure.Type == kCoolingDevice;
      const std::string_view key = isCooling ? "device_type_and_status" : "location_and_status";
      sensors.Add({TextOfFirmware(fields.GetString("description")),
                   std::string(TitleOfType(structure.Type)),
                   TextOfFirmware(fields.GetPartText(key, isCooling ? "device_type" : "location")),
                   TextOfFirmware(fields.GetPartText(key, "status"))});
    }
  }
  sensors.End();
  section.End();
}

void WriteFacts(HtmlWriter& html,
                std::initializer_list<std::pair<std::string_view, std::string>> facts) {
  html.Element("dl", {}, [&] {
    for (const auto& [name, text] : facts) {
      if (!text.empty()) {
        html.TextElement("dt", name);
        html.TextElement("dd", text);
        html.EndLine();
      }
    }
  });
}

std::string TitleOf(const SystemFacts& system) {
  const bool isInName = system.ProductName.starts_with(system.Manufacturer);
  const std::string title =
      JoinTexts(" ", {isInName ? std::string_view() : system.Manufacturer, system.ProductName});
  return title.empty() ? "A machine without a name" : title;
}

void WriteHead(HtmlWriter& html, const Overview& overview) {
  const SystemFacts system = overview.GetSystem();
  const BiosFacts bios = overview.GetBios();
  const BaseBoardFacts board = overview.GetBaseBoard();
  const ChassisFacts chassis = overview.GetChassis();
  const auto tpm = overview.GetTpm().value_or(TpmFacts{});
  html.TextElement("h1", TitleOf(system));
  html.EndLine();
  WriteFacts(html,
             {{"Version", TextOfFirmware(system.Version)},
              {"Serial number", TextOfFirmware(system.SerialNumber)},
              {"SKU number", TextOfFirmware(system.SkuNumber)},
              {"UUID", system.Uuid},
              {"BIOS", JoinTexts(", ", {bios.Vendor, bios.Version, bios.ReleaseDate,
                                        bios.Uefi == true ? "UEFI" : "",
                                        bios.RomSizeBytes ? TextOfSize(*bios.RomSizeBytes) : ""})},
              {"Base board", JoinTexts(", ", {board.Manufacturer, board.Product, board.Version,
                                              board.SerialNumber})},
              {"Chassis", JoinTexts(", ", {chassis.Type, chassis.Manufacturer, chassis.Version,
                                           chassis.SerialNumber})},
              {"TPM", JoinTexts(", ", {tpm.Vendor, tpm.Version})}});
}

// Which structures name a structure by its handle.
class References {
 public:
  References(const catalog::TableScan& scan, const HandleNames& names) {
    for (const Structure& structure : scan.Structures) {
      if (const auto* type = catalog::FindStructureType(structure.Type)) {
        Add(structure, catalog::DecodeFields(structure, *type), names);
      }
    }
  }

  struct Sources {
    // The first few, in table order.
    std::vector<const Structure*> Some;
    std::uint64_t Count = 0;
  };

  const Sources* To(const Structure& structure) const {
    const auto found = ByOffset.find(structure.Offset);
    return found != ByOffset.end() ? &found->second : nullptr;
  }

 private:
  void Add(const Structure& source, const catalog::DecodedFields& fields,
           const HandleNames& names) {
    constexpr std::size_t kMostNamed = 16;
    for (const catalog::DecodedField& field : fields) {
      if (field.Definition->Kind == catalog::FieldKind::Handle) {
        const Structure* target = names.Find(static_cast<std::uint16_t>(field.Number));
        if (target != nullptr) {
          Sources& sources = ByOffset[target->Offset];
          if (!sources.Some.empty() && sources.Some.back() == &source) {
            continue;
          }
          ++sources.Count;
          if (sources.Some.size() < kMostNamed) {
            sources.Some.push_back(&source);
          }
        }
      }
      for (const catalog::DecodedFields& entry : field.Entries) {
        Add(source, entry, names);
      }
    }
  }

  std::unordered_map<std::size_t, Sources> ByOffset;
};

// Turns the lines of a structure into lists within lists.
class LineLists {
 public:
  explicit LineLists(HtmlWriter& html) : Html(html) {}

  void Add(const StructureLine& line) {
    CloseDownTo(line.Depth + 1);
    if (Kinds.size() == line.Depth + 1 && line.BeginsEntry && HasLines) {
      CloseDownTo(line.Depth);
    }
    while (Kinds.size() <= line.Depth) {
      Open(line.Label.empty() ? Kind::Plain : Kind::Labelled);
    }
    CloseItem();
    HasLines = true;
    if (Kinds.back() == Kind::Labelled) {
      Html.TextElement("dt", line.Label);
      Html.Open("dd");
    } else {
      Html.Open("li");
    }
    IsItemOpen = true;
    if (line.Target != nullptr) {
      Html.TextElement("a", line.Value, {{"href", LinkTo(*line.Target)}});
    } else {
      Html.Text(line.Value);
    }
  }

  void End() { CloseDownTo(0); }

 private:
  // With labels, or of plain values.
  enum class Kind { Labelled, Plain };

  void Open(Kind kind) {
    Html.Open(kind == Kind::Labelled ? Markup("dl") : Markup("ul"));
    Kinds.push_back(kind);
    IsItemOpen = false;
  }
  void CloseItem() {
    if (std::exchange(IsItemOpen, false)) {
      Html.Close();
    }
  }
  void CloseDownTo(std::size_t depth) {
    while (Kinds.size() > depth) {
      CloseItem();
      Html.Close();
      Kinds.pop_back();
      // The item that holds the list.
      IsItemOpen = !Kinds.empty();
    }
  }

  HtmlWriter& Html;
  std::vector<Kind> Kinds;
  bool IsItemOpen = false;
  bool HasLines = false;
};

void WriteFault(HtmlWriter& html, const catalog::Fault& fault) {
  const bool isError = fault.Severity == catalog::FaultSeverity::Error;
  html.Open("li", {{"class", isError ? "error" : "remark"}});
  if (fault.Place.Type) {
    html.TextElement("a",
                     Join({TitleOfType(*fault.Place.Type), ", at ",
                           Hex(fault.Place.Offset.value_or(0), 4), "h"}),
                     {{"href", Join({"#s", Hex(fault.Place.Offset.value_or(0), 1)})}});
  } else {
    html.Text(fault.Place.Offset ? Join({"at ", Hex(*fault.Place.Offset, 4), "h"})
                                 : std::string("entry point"));
  }
  html.Text(fault.More != 0 ? Join({", and ", Decimal(fault.More), " more"}) : std::string());
  html.Text(isError ? ": error: " : ": remark: ");
  html.Text(fault.Text);
  html.Close();
  html.EndLine();
}

void WriteFaults(HtmlWriter& html, const catalog::FaultList& faults) {
  html.TextElement("h2", "What is wrong with the table");
  if (faults.GetFaults().empty()) {
    html.TextElement("p", "Nothing was found.");
    return;
  }
  html.Open("ul");
  for (const auto severity : {catalog::FaultSeverity::Error, catalog::FaultSeverity::Remark}) {
    for (const catalog::Fault& fault : faults.GetFaults()) {
      if (fault.Severity == severity) {
        WriteFault(html, fault);
      }
    }
  }
  html.Close();
}

// The bytes of a structure, with those of its strings, in lines of sixteen.
void WriteBytes(HtmlWriter& html, std::span<const std::uint8_t> table, const Structure& structure) {
  constexpr std::size_t kMostInLine = 16;
  const auto bytes = table.subspan(structure.Offset,
                                   std::min(structure.GetEnd(), table.size()) - structure.Offset);
  html.Open("pre");
  for (std::size_t start = 0; start < bytes.size(); start += kMostInLine) {
    html.Text(start != 0 ? "\n" : "");
    html.Text(TextOfBytes(bytes.subspan(start, std::min(kMostInLine, bytes.size() - start))));
  }
  html.Close();
}

void WriteSources(HtmlWriter& html, const References::Sources& sources) {
  html.Open("p");
  html.Text("Named by ");
  std::string_view separator;
  for (const Structure* source : sources.Some) {
    html.Text(std::exchange(separator, ", "));
    html.TextElement("a", MakeNameOf(*source), {{"href", LinkTo(*source)}});
  }
  if (sources.Count > sources.Some.size()) {
    html.Text(Join({" and ", Decimal(sources.Count - sources.Some.size()), " more"}));
  }
  html.Close();
}

void WriteStructures(HtmlWriter& html, const SmbiosTable& table, const catalog::TableScan& scan,
                     HandleNames& names) {
  html.TextElement("h2", "Structures");
  const References references(scan, names);
  const catalog::StructureChecker checker(table, scan);
  for (const Structure& structure : scan.Structures) {
    html.Open("details", {{"id", AnchorOf(structure)}});
    html.TextElement("summary",
                     Join({MakeNameOf(structure), ": type ", Decimal(structure.Type), ", handle ",
                           Hex(structure.Handle, 4), "h, at ", Hex(structure.Offset, 4), "h"}));
    LineLists lines(html);
    DescribeStructure(structure, catalog::MeantVersion(table.EntryPoint.Version), names,
                      [&lines](const StructureLine& line) { lines.Add(line); });
    lines.End();
    catalog::FaultList faults;
    checker.Check(structure, faults);
    for (const catalog::Fault& fault : faults.GetFaults()) {
      const bool isError = fault.Severity == catalog::FaultSeverity::Error;
      html.TextElement("p", Join({isError ? "Error: " : "Remark: ", fault.Text}),
                       {{"class", isError ? "error" : "remark"}});
    }
    if (const References::Sources* sources = references.To(structure)) {
      WriteSources(html, *sources);
    }
    WriteBytes(html, table.Bytes, structure);
    html.Close();
    html.EndLine();
  }
}

}  // namespace

void WriteHtmlPage(const SmbiosTable& table, const catalog::TableScan& scan,
                   const catalog::FaultList& faults, Output& output) {
  const Overview overview(table);
  HandleNames names(scan);
  HtmlWriter html(output);
  HtmlTemplate page(kPageTemplate, output);
  page.WriteUpTo("title");
  html.Text(TitleOf(overview.GetSystem()));
  page.WriteUpTo("head");
  WriteHead(html, overview);
  page.WriteUpTo("machine");
  DrawMemory(html, overview);
  DrawProcessors(html, overview);
  WriteTables(html, overview, scan);
  DrawAddressMap(html, scan, names);
  html.Element("section", {}, [&] { WriteFaults(html, faults); });
  html.Element("section", {}, [&] { WriteStructures(html, table, scan, names); });
  page.WriteRest();
}

}  // namespace kestrel
